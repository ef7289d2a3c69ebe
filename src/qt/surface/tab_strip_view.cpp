#include "qt/surface/tab_strip_view.h"

#include "qt/surface/focus_keeper.h"
#include "qt/surface/mnemonics.h"
#include "qt/surface/shades.h"
#include "qt/surface/spoken_names.h"
#include "qt/surface/text.h"

#include <QMouseEvent>
#include <QPainter>
#include <QShortcutEvent>
#include <QTabBar>
#include <QTabWidget>

namespace headerdtc::qt {

// Lies over the tabs and has a dot in the corner of each that is marked.
class TabStripView::Dots : public QWidget {
  public:
    explicit Dots(QTabBar& bar) : QWidget(&bar), bar_(bar) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        bar.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize) resize(bar_.size());
        return QWidget::eventFilter(watched, event);
    }

    std::set<int> pages;

  protected:
    void paintEvent(QPaintEvent*) override {
        constexpr int Size = 5;
        constexpr int Margin = 4;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(frameColor(palette()));
        for (const int page : pages) {
            const QRect tab = bar_.tabRect(page);
            painter.drawEllipse(tab.right() - Margin - Size, tab.top() + Margin, Size, Size);
        }
    }

  private:
    QTabBar& bar_;
};

TabStripView::TabStripView(TabStrip& model, QTabWidget& widget, FormFace face)
    : ControlView(model, widget, face),
      model_(model),
      tabs_(widget),
      dots_(new Dots(*widget.tabBar())) {
    const auto& captions = model_.captions();
    for (std::size_t page = 0; page < captions.size(); ++page)
        tabs_.setTabText(static_cast<int>(page), toQt(captions[page]));
    tabs_.tabBar()->setAccessibleName(spokenName(model_.name()));
    tabs_.tabBar()->installEventFilter(this);
    // Ways to turn a page that Qt knows and the filter does not.
    connect(&tabs_, &QTabWidget::currentChanged, this, [this](int page) {
        if (page != model_.Tab()) clickTab(page);
    });
    subscriptions_ += model_.tabChanged.subscribe([this] { show(); });
}

QString TabStripView::takeMnemonics(const QString& taken) {
    QStringList captions;
    for (const std::string& caption : model_.captions())
        captions += toQt(caption);
    QString letters = mnemonicsOf(captions, taken);
    for (int page = 0; page < captions.size(); ++page)
        tabs_.setTabText(page, withMnemonic(captions.at(page), letters.at(page)));
    return letters;
}

void TabStripView::markPages(const std::set<int>& pages) {
    if (pages == dots_->pages) return;
    dots_->pages = pages;
    dots_->update();
    for (int page = 0; page < tabs_.count(); ++page) {
        const QString caption = toQt(model_.captions().at(static_cast<std::size_t>(page)));
        tabs_.tabBar()->setAccessibleTabName(
            page,
            pages.contains(page) ? tr("%1, differs from the saved page").arg(caption) : QString());
    }
}

void TabStripView::show() {
    if (QWidget* page = tabs_.currentWidget(); page && tabs_.currentIndex() != model_.Tab())
        face_.focus.park(*page);
    tabs_.setCurrentIndex(model_.Tab());
}

void TabStripView::clickTab(int page) {
    act([&] { model_.clickTab(page); });
    show();
    face_.focus.follow();
}

// The model turns the page, after the control on it has lost the focus: Qt must not do so first.
bool TabStripView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == tabs_.tabBar() && tabBarEvent(*event)) return true;
    // Keys that no control of a page has used are passed on to here.
    if (watched == &tabs_ && event->type() == QEvent::KeyPress)
        return turnPage(static_cast<QKeyEvent&>(*event));
    return ControlView::eventFilter(watched, event);
}

bool TabStripView::tabBarEvent(const QEvent& event) {
    const QTabBar& bar = *tabs_.tabBar();
    switch (event.type()) {
        case QEvent::MouseButtonPress: {
            const auto& mouse = static_cast<const QMouseEvent&>(event);
            const int page = bar.tabAt(mouse.position().toPoint());
            if (mouse.button() == Qt::LeftButton && page >= 0) clickTab(page);
            return mouse.button() == Qt::LeftButton && page >= 0;
        }
        case QEvent::Shortcut: {
            const auto& shortcut = static_cast<const QShortcutEvent&>(event);
            for (int page = 0; page < bar.count(); ++page) {
                if (QKeySequence::mnemonic(bar.tabText(page)) != shortcut.key()) continue;
                clickTab(page);
                return true;
            }
            return false;
        }
        case QEvent::KeyPress:
            return keyPressed(static_cast<const QKeyEvent&>(event));
        // The mouse wheel must not turn pages.
        case QEvent::Wheel:
            return true;
        default:
            return false;
    }
}

bool TabStripView::keyPressed(const QKeyEvent& event) {
    const auto key = keyOf(event);
    if (!key || (key->kind != Key::Kind::Left && key->kind != Key::Kind::Right)) return false;
    act([&] { model_.press(*key); });
    return true;
}

// Ctrl and Tab, from anywhere on a page.
bool TabStripView::turnPage(const QKeyEvent& event) {
    const bool forward = event.key() == Qt::Key_Tab;
    if (!forward && event.key() != Qt::Key_Backtab) return false;
    if (!event.modifiers().testFlag(Qt::ControlModifier)) return false;
    clickTab((model_.Tab() + (forward ? 1 : tabs_.count() - 1)) % tabs_.count());
    return true;
}

}  // namespace headerdtc::qt
