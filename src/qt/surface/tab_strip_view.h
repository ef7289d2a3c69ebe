#pragma once

#include "controls/tab_strip.h"
#include "qt/surface/control_view.h"

class QTabWidget;

namespace headerdtc::qt {

class TabStripView : public ControlView {
  public:
    TabStripView(TabStrip& model, QTabWidget& widget, FormFace face);

    // Every tab takes a letter of its own that is not taken; tells which.
    QString takeMnemonics(const QString& taken);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void show() override;
    bool keyPressed(const QKeyEvent& event) override;

  private:
    bool tabBarEvent(const QEvent& event);
    bool turnPage(const QKeyEvent& event);
    void clickTab(int page);

    TabStrip& model_;
    QTabWidget& tabs_;
};

}  // namespace headerdtc::qt
