#pragma once

#include <QIcon>

class QWidget;

namespace headerdtc::qt {

// An icon by its name in the desktop's icon theme, or a drawing of our own where the theme has
// none. Our drawings are sharp at every scale and follow the palette.
QIcon editorIcon(const QString& name);
QIcon editorIcon(const char* name);

// Gives the buttons of a form the icons that their property "iconName" says.
void setIcons(const QWidget& form);

// The program's own icon.
QIcon applicationIcon();

}  // namespace headerdtc::qt
