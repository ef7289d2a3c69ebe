#pragma once

#include "qt/editor/base/message.h"

#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>
#include <map>
#include <vector>

class QVBoxLayout;

namespace headerdtc::qt {

// Notices for the author, shown above the page rather than as message boxes: one line each, with
// buttons for what can be done.
class NoticeBar : public QWidget {
    Q_OBJECT

  public:
    struct Choice {
        QString text;
        std::function<void()> act;
    };

    explicit NoticeBar(QWidget* parent = nullptr);

    // A notice of the same key is replaced. A choice takes the notice away before it acts.
    void show(const QString& key, Message::Severity severity, const QString& text,
              const std::vector<Choice>& choices = {});
    void remove(const QString& key);
    bool shows(const QString& key) const { return notices_.contains(key); }

  Q_SIGNALS:
    // A notice goes that has the focus, which has to go on somewhere: it came from nowhere else.
    void focusLeft();

  private:
    QVBoxLayout* layout_;
    std::map<QString, QWidget*> notices_;
    QPointer<QWidget> cameFrom_;  // what of the page had the focus last
};

}  // namespace headerdtc::qt
