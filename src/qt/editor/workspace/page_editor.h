#pragma once

#include "qt/editor/base/message.h"
#include "qt/editor/page/edited_page.h"
#include "qt/editor/preview/preview_worker.h"
#include "qt/editor/workspace/page_judge.h"

#include <QTimer>
#include <QWidget>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

class QSplitter;

namespace headerdtc::qt {

class ControlPane;
class FindBar;
class NoticeBar;
class PageHealth;
class PreviewPane;
class SourceView;

// One open page: its controls, its source beside them, and the text that would be generated.
class PageEditor : public QWidget {
    Q_OBJECT

  public:
    explicit PageEditor(std::unique_ptr<EditedPage> page, QWidget* parent = nullptr);
    ~PageEditor() override;

    EditedPage& page() { return *page_; }
    const EditedPage& page() const { return *page_; }
    ControlPane& controls() { return *controls_; }
    SourceView& source() { return *source_; }
    PreviewPane& preview() { return *preview_; }
    NoticeBar& notices() { return *notices_; }
    PageHealth& health() { return *health_; }

    // The file's name.
    QString title() const;
    bool isModified() const { return page_->isModified(); }

    void undo();
    void redo();
    void insertControl();
    void removeControl();
    // Moves the focus to where the page is edited first.
    void takeFocus();
    // Shows the source, if need be, and moves the focus to it.
    void focusSource();
    void goTo(const Place& place);
    void find();
    // Folds or unfolds the shown control in the source.
    void toggleFold();
    // Puts the author's changes into the page, including what is being typed; called before the
    // page is saved, closed or left.
    void finishEditing();
    // The template or the catalogue may have changed: makes the previews again, and controls that
    // lacked something.
    void lookAgain();
    void showParts(bool source, bool preview);
    bool isBusy() const;
    // Whether the page holds the text that would be generated, and whether a save would be refused;
    // nothing until that is known.
    std::optional<GeneratedPage::Verdict> state() const { return state_; }
    // What the messages of the page are kept under, whatever its file's name becomes.
    const QString& messageSource() const { return messageSource_; }

  Q_SIGNALS:
    // Title, modified mark, undo or redo have changed.
    void stateChanged();
    // The source is to be shown.
    void sourceRequested();
    // The author wants to look at the settings of the page's site.
    void settingsRequested();
    // In place of those it had before.
    void messagesChanged(const std::vector<headerdtc::qt::Message>& messages);

  private:
    void followPage();
    void requestPreviews();
    void takePreview(const std::shared_ptr<const Preview>& preview);
    void showPreviewOfCurrent();
    void judge();
    void tell(const InspectedPage& inspected);
    void showRefusal(const InspectedPage& inspected);
    void addRow(Family family);
    void step(void (EditedPage::*move)(), const std::string& control);

    const QString messageSource_;
    std::unique_ptr<EditedPage> page_;
    PreviewWorker worker_;
    PageJudge judge_;
    PageContentPtr judged_;  // what was asked of the judge last
    std::optional<GeneratedPage::Verdict> state_;
    struct Asked {
        StoredProperties properties;
        PageContentPtr saved;
        bool operator==(const Asked&) const = default;
    };
    std::map<std::string, Asked> previewed_;  // what was asked for, by control
    std::map<std::string, std::shared_ptr<const Preview>> previews_;
    QString refusal_;  // why a save would be refused, in words
    QTimer followTimer_;
    QTimer sealTimer_;

    NoticeBar* notices_;
    ControlPane* controls_;
    PageHealth* health_;
    SourceView* source_;
    FindBar* findBar_;
    QWidget* sourcePart_;
    PreviewPane* preview_;
    QSplitter* beside_;
};

}  // namespace headerdtc::qt
