#include "qt/editor/window/messages_panel.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"

#include <QAction>
#include <QClipboard>
#include <QDockWidget>
#include <QGuiApplication>
#include <QHeaderView>
#include <QTreeView>
#include <QVBoxLayout>

namespace headerdtc::qt {

MessagesPanel::MessagesPanel(MessageModel& messages, QWidget* parent)
    : QWidget(parent), messages_(messages) {
    setProperty("guideChapter", QStringLiteral("editor.md#messages"));
    view_ = new QTreeView;
    view_->setObjectName(QStringLiteral("MessagesView"));
    view_->setAccessibleName(tr("Messages"));
    view_->setModel(&messages);
    view_->setRootIsDecorated(false);
    view_->setAllColumnsShowFocus(true);
    view_->setAlternatingRowColors(true);
    view_->setUniformRowHeights(true);
    view_->header()->setStretchLastSection(false);
    view_->header()->setSectionResizeMode(MessageModel::Text, QHeaderView::Stretch);
    view_->header()->setSectionResizeMode(MessageModel::Page, QHeaderView::ResizeToContents);
    view_->header()->setSectionResizeMode(MessageModel::Where, QHeaderView::ResizeToContents);
    connect(view_, &QTreeView::activated, this,
            [this](const QModelIndex& index) { Q_EMIT activated(messages_.message(index.row())); });

    auto* copy = new QAction(tr("Copy"), view_);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &MessagesPanel::copySelected);
    view_->addAction(copy);
    view_->setContextMenuPolicy(Qt::ActionsContextMenu);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_);
}

void MessagesPanel::copySelected() {
    const QModelIndex index = view_->currentIndex();
    if (!index.isValid()) return;
    const Message& message = messages_.message(index.row());
    QGuiApplication::clipboard()->setText(QString::fromStdString(message.page.string()) +
                                          QLatin1String(": ") + message.text);
}

MessageCount::MessageCount(MessageModel& messages, QDockWidget& panel, QWidget* parent)
    : QToolButton(parent), messages_(messages), panel_(panel) {
    setObjectName(QStringLiteral("MessageCount"));
    setAutoRaise(true);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setToolTip(tr("Show or hide the messages"));
    connect(this, &QToolButton::clicked, panel.toggleViewAction(), &QAction::trigger);
    connect(&messages, &MessageModel::changed, this, &MessageCount::follow);
    follow();
}

void MessageCount::follow() {
    const int errors = messages_.count(Message::Severity::Error);
    const int others = messages_.rowCount() - errors;
    QStringList words;
    if (errors > 0) words += counted(errors, "error", "errors");
    if (others > 0) words += counted(others, "warning", "warnings");
    setText(words.join(QLatin1String(", ")));
    setIcon(editorIcon(errors > 0 ? "dialog-error" : "dialog-warning"));
    setVisible(!words.isEmpty());
    panel_.toggleViewAction()->setEnabled(!words.isEmpty());
    if (words.isEmpty()) panel_.hide();
}

}  // namespace headerdtc::qt
