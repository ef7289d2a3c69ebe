#include "qt/editor/workspace/notice_bar.h"

#include "qt/editor/base/icons.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace headerdtc::qt {
namespace {

struct NoticeLook {
    const char* icon;
    QRgb onLight, onDark;  // background
};

// In the order of Message::Severity.
constexpr NoticeLook NoticeLooks[] = {
    {"dialog-information", 0xffdfeaf8, 0xff22364f},
    {"dialog-warning", 0xfffbefd0, 0xff4a3a14},
    {"dialog-error", 0xfff9dedb, 0xff552623},
};

}  // namespace

NoticeBar::NoticeBar(QWidget* parent) : QWidget(parent) {
    layout_ = new QVBoxLayout(this);
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(1);
    setVisible(false);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (parentWidget() && parentWidget()->isAncestorOf(now) && !isAncestorOf(now))
            cameFrom_ = now;
    });
}

void NoticeBar::show(const QString& key, Message::Severity severity, const QString& text,
                     const std::vector<Choice>& choices) {
    remove(key);
    const NoticeLook& look = NoticeLooks[static_cast<std::size_t>(severity)];
    auto* notice = new QFrame;
    notice->setObjectName(QStringLiteral("Notice"));
    notice->setAutoFillBackground(true);
    QPalette colours = palette();
    const bool dark = colours.color(QPalette::Window).lightnessF() < 0.5;
    colours.setColor(QPalette::Window, QColor::fromRgb(dark ? look.onDark : look.onLight));
    notice->setPalette(colours);

    auto* icon = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    icon->setPixmap(editorIcon(look.icon).pixmap(QSize(size, size), devicePixelRatioF()));
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* row = new QHBoxLayout(notice);
    row->setContentsMargins(8, 4, 4, 4);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addWidget(label, 1);
    for (const Choice& choice : choices) {
        auto* button = new QPushButton(choice.text);
        connect(button, &QPushButton::clicked, this, [this, key, act = choice.act] {
            remove(key);
            act();
        });
        row->addWidget(button);
    }
    auto* close = new QToolButton;
    close->setIcon(editorIcon("window-close"));
    close->setAutoRaise(true);
    close->setToolTip(tr("Hide"));
    close->setAccessibleName(tr("Hide this notice"));
    connect(close, &QToolButton::clicked, this, [this, key] { remove(key); });
    row->addWidget(close);

    layout_->addWidget(notice);
    notices_[key] = notice;
    setVisible(true);
}

void NoticeBar::remove(const QString& key) {
    const auto found = notices_.find(key);
    if (found == notices_.end()) return;
    // Deleted later: the click of its own button may be what removes it.
    QWidget* notice = found->second;
    notices_.erase(found);
    if (notice->isAncestorOf(window()->focusWidget())) {
        if (cameFrom_ && cameFrom_->isVisible()) {
            cameFrom_->setFocus();
        } else {
            Q_EMIT focusLeft();
        }
    }
    notice->hide();
    notice->deleteLater();
    setVisible(!notices_.empty());
}

}  // namespace headerdtc::qt
