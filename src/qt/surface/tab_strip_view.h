#pragma once

#include "controls/tab_strip.h"
#include "qt/surface/control_view.h"

#include <set>

class QTabWidget;

namespace headerdtc::qt {

class TabStripView : public ControlView {
  public:
    TabStripView(TabStrip& model, QTabWidget& widget, FormFace face);

    // Every tab takes a letter of its own that is not taken; tells which.
    QString takeMnemonics(const QString& taken);
    // Marks the tabs of these pages, and no others, as holding what is not in the page's file.
    void markPages(const std::set<int>& pages);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void show() override;
    bool keyPressed(const QKeyEvent& event) override;

  private:
    bool tabBarEvent(const QEvent& event);
    bool turnPage(const QKeyEvent& event);
    void clickTab(int page);

    class Dots;

    TabStrip& model_;
    QTabWidget& tabs_;
    Dots* dots_;
};

}  // namespace headerdtc::qt
