#include "qt/editor/workspace/page_editor.h"

#include "core/header_dtc.h"
#include "qt/editor/base/words.h"
#include "qt/editor/health/page_health.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/preview/preview_pane.h"
#include "qt/editor/source/find_bar.h"
#include "qt/editor/source/source_view.h"
#include "qt/editor/workspace/notice_bar.h"
#include "qt/surface/control_surface.h"

#include <QApplication>
#include <QFileInfo>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace headerdtc::qt {
namespace {

// Milliseconds after the last change: the text is to follow an edit within 300.
constexpr int FollowDelay = 60;
constexpr int SealDelay = 1000;  // a pause this long ends a step of typing

// Numbers the editors: a page can be renamed, but its messages have to keep their source name.
int editorsMade = 0;

QWidget* titled(const QString& title, QWidget* content, const char* chapter) {
    auto* part = new QWidget;
    part->setProperty("guideChapter", QLatin1String(chapter));
    auto* label = new QLabel(title);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setContentsMargins(6, 3, 6, 3);
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(label);
    layout->addWidget(content, 1);
    return part;
}

}  // namespace

PageEditor::PageEditor(std::unique_ptr<EditedPage> page, QWidget* parent)
    : QWidget(parent),
      messageSource_(QStringLiteral("page %1").arg(++editorsMade)),
      page_(std::move(page)),
      judge_(page_->sites()) {
    notices_ = new NoticeBar;
    controls_ = new ControlPane(*page_);
    health_ = new PageHealth(*page_, *controls_, this);
    source_ = new SourceView;
    findBar_ = new FindBar(*source_);
    preview_ = new PreviewPane;
    preview_->setObjectName(QStringLiteral("PreviewPane"));

    auto* sourceAndFind = new QWidget;
    auto* sourceLayout = new QVBoxLayout(sourceAndFind);
    sourceLayout->setContentsMargins(0, 0, 0, 0);
    sourceLayout->setSpacing(0);
    sourceLayout->addWidget(source_);
    sourceLayout->addWidget(findBar_);
    sourcePart_ = titled(tr("Source"), sourceAndFind, "editor.md#source");
    beside_ = new QSplitter(Qt::Vertical);
    beside_->addWidget(sourcePart_);
    beside_->addWidget(titled(tr("Generated text"), preview_, "editor.md#generated-text"));
    beside_->setSizes({400, 400});
    beside_->setChildrenCollapsible(false);
    auto* whole = new QSplitter(Qt::Horizontal);
    whole->addWidget(controls_);
    whole->addWidget(beside_);
    whole->setStretchFactor(0, 0);
    whole->setStretchFactor(1, 1);
    // Room for the names of fields; the texts get what is left.
    whole->setSizes({ControlSurface::DesignedWidth, ControlSurface::DesignedWidth});
    whole->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(notices_);
    layout->addWidget(whole, 1);

    followTimer_.setSingleShot(true);
    followTimer_.setInterval(FollowDelay);
    connect(&followTimer_, &QTimer::timeout, this, &PageEditor::requestPreviews);
    connect(&followTimer_, &QTimer::timeout, this, &PageEditor::judge);
    sealTimer_.setSingleShot(true);
    sealTimer_.setInterval(SealDelay);
    connect(&sealTimer_, &QTimer::timeout, this, [this] { page_->sealStep(); });
    connect(&worker_, &PreviewWorker::ready, this, &PageEditor::takePreview);
    connect(page_.get(), &EditedPage::contentChanged, this, &PageEditor::followPage);
    connect(page_.get(), &EditedPage::stateChanged, this, [this] {
        followTimer_.start();  // the saved text may be another
        Q_EMIT stateChanged();
    });
    connect(page_.get(), &EditedPage::placeChanged, this, &PageEditor::lookAgain);
    connect(page_.get(), &EditedPage::readAgain, this, &PageEditor::lookAgain);
    connect(controls_, &ControlPane::currentChanged, this, &PageEditor::showPreviewOfCurrent);
    connect(controls_, &ControlPane::insertRequested, this, &PageEditor::insertControl);
    connect(source_, &SourceView::edited, this,
            [this](const ByteRange& range, const std::string& bytes, const QString& kind) {
                page_->replaceText(range, bytes, kind);
            });
    connect(source_, &SourceView::editRefused, this, [this] {
        notices_->show(QStringLiteral("span"), Message::Severity::Note,
                       tr("The marked lines belong to the control: change them at the control, or "
                          "take it out with Edit > Remove control."));
    });
    connect(&judge_, &PageJudge::judged, this,
            [this](const std::shared_ptr<const InspectedPage>& page) { tell(*page); });
    connect(health_, &PageHealth::changed, this, &PageEditor::stateChanged);
    connect(notices_, &NoticeBar::focusLeft, this, &PageEditor::takeFocus);
    followPage();
}

PageEditor::~PageEditor() {
    // The page must not signal to views that are being deleted.
    page_->disconnect();
    delete controls_;
}

QString PageEditor::title() const {
    return toName(page_->file().filename());
}

bool PageEditor::isBusy() const {
    return controls_->isBusy();
}

void PageEditor::followPage() {
    source_->showPage(page_->content());
    sealTimer_.start();
    followTimer_.start();
}

// ---- what there is to say of the page -----------------------------------------------------------

void PageEditor::judge() {
    if (judged_ == page_->content()) return;
    judged_ = page_->content();
    judge_.request({page_->file(), judged_->bytes()});
}

void PageEditor::tell(const InspectedPage& inspected) {
    state_ = inspected.verdict;
    std::vector<Message> messages = messagesOf(page_->file(), inspected);
    if (const auto& problem = page_->content()->problem()) {
        Place place;
        place.line = problem->line();
        messages = {{Message::Severity::Error, toQt(problem->problem()), page_->file(), place}};
    }
    showRefusal(inspected);
    Q_EMIT messagesChanged(messages);
    Q_EMIT stateChanged();
}

// Shows why a save would be refused and what can be done; goes with its cause.
void PageEditor::showRefusal(const InspectedPage& inspected) {
    const QString key = QStringLiteral("refusal");
    const auto worst = std::max_element(
        inspected.doubts.begin(), inspected.doubts.end(),
        [](const auto& one, const auto& other) { return one.doubt.kind < other.doubt.kind; });
    QString text;
    std::vector<NoticeBar::Choice> choices;
    const NoticeBar::Choice settings{tr("Settings..."), [this] { Q_EMIT settingsRequested(); }};
    if (lacksSite(inspected)) {
        text = messagesOf(page_->file(), inspected).front().text;
        choices = {{tr("Set up a site..."), settings.act}};
    } else if (inspected.failure && inspected.failure->of != PageFailure::Of::Page) {
        text = toQt(inspected.failure->text);
        choices = {settings};
    } else if (worst != inspected.doubts.end()) {
        const SaveDoubt& doubt = worst->doubt;
        const bool isLoss = doubt.kind == SaveDoubt::Kind::Loss;
        text = (isLoss ? tr("Saving this page would lose something: %1.")
                       : tr("This page cannot be generated: %1."))
                   .arg(toQt(doubt.reason));
        if (!isLoss) choices = {settings};
        const auto kind = std::find_if(
            doubt.losses.begin(), doubt.losses.end(),
            [](const StoredLoss& loss) { return loss.what == StoredLoss::What::Kind; });
        if (kind != doubt.losses.end())
            choices = {{tr("Add a row"), [this, control = worst->control, family = *kind->family] {
                            controls_->select(control);
                            addRow(family);
                        }}};
    }
    if (text.isEmpty() && page_->hasFile() && !QFileInfo(toName(page_->file())).isWritable())
        text = tr("This page is read-only: save it under another name, or make its file writable.");
    // A notice that the author has closed comes back only with another text.
    if (text == std::exchange(refusal_, text)) return;
    if (text.isEmpty()) return notices_->remove(key);
    const bool isError = inspected.verdict >= GeneratedPage::Verdict::Failing;
    notices_->show(key, isError ? Message::Severity::Error : Message::Severity::Warning, text,
                   choices);
}

// Where the kinds of values go beyond the rows, one more row keeps one more.
void PageEditor::addRow(Family family) {
    if (!controls_->live() || isBusy()) return;
    HeaderDTC& dtc = controls_->live()->dtc();
    controls_->surface()->act([&] {
        dtc.SSTab1.clickTab(traitsOf(family).tabPage);
        dtc.family(family).AddCriteriumCommand.press();
    });
    controls_->takeChanges();
    // It reads now what it had no room for.
    controls_->renewFaulty();
}

// ---- what the author does -----------------------------------------------------------------------

void PageEditor::finishEditing() {
    controls_->finishEditing();
    page_->sealStep();
}

void PageEditor::step(void (EditedPage::*move)(), const std::string& control) {
    (page_.get()->*move)();
    if (const auto index = page_->content()->indexOf(control)) controls_->select(*index);
}

void PageEditor::undo() {
    finishEditing();
    if (const Step* step = page_->history().undoStep())
        this->step(&EditedPage::undo, step->control);
}

void PageEditor::redo() {
    finishEditing();
    if (const Step* step = page_->history().redoStep())
        this->step(&EditedPage::redo, step->control);
}

void PageEditor::insertControl() {
    finishEditing();
    std::optional<int> line = source_->chosenLine();
    const auto directive = page_->content()->directive();
    const bool isTooEarly =
        line && directive && source_->lines()->bytesOfLine(*line - 1).begin < directive->end;
    if (isTooEarly) line.reset();
    const QString key = QStringLiteral("insert");
    try {
        page_->insertControl(line);
        notices_->remove(key);
        if (isTooEarly)
            notices_->show(
                key, Message::Severity::Note,
                tr("The control stands behind the page's directive <%@ ... %>, which has "
                   "to come before all other script."));
    } catch (const FileError& error) {
        notices_->show(
            key, Message::Severity::Warning,
            tr("No control can be inserted here: %1").arg(QString::fromStdString(error.problem())));
    }
}

// A page without a control begins with its text.
void PageEditor::takeFocus() {
    if (!controls_->current() && source_->isVisibleTo(this)) return source_->setFocus();
    controls_->focusControl();
}

void PageEditor::removeControl() {
    finishEditing();
    if (const auto control = controls_->current()) page_->removeControl(*control);
}

void PageEditor::goTo(const Place& place) {
    if (place.tab >= 0) {
        controls_->goTo(place);
    } else if (place.line > 0) {
        focusSource();
        source_->goToLine(place.line);
    }
}

void PageEditor::focusSource() {
    Q_EMIT sourceRequested();
    source_->setFocus();
}

void PageEditor::toggleFold() {
    const auto control = controls_->current();
    if (!control) return;
    Q_EMIT sourceRequested();
    const std::string& id = page_->content()->controls()[*control].id;
    source_->setFolded(id, !source_->isFolded(id));
}

void PageEditor::find() {
    Q_EMIT sourceRequested();
    findBar_->open();
}

void PageEditor::showParts(bool source, bool preview) {
    sourcePart_->setVisible(source);
    beside_->widget(1)->setVisible(preview);
    beside_->setVisible(source || preview);
}

// ---- previews -----------------------------------------------------------------------------------

void PageEditor::lookAgain() {
    controls_->renewFaulty();
    previewed_.clear();
    judged_.reset();
    followTimer_.start();
    health_->judgeSoon();
}

void PageEditor::requestPreviews() {
    const PageContentPtr& content = page_->content();
    std::set<std::string> ids;
    for (const ControlSpan& span : content->controls()) {
        ids.insert(span.id);
        Asked asked{span.properties, page_->saved()};
        const auto before = previewed_.find(span.id);
        if (before != previewed_.end() && before->second == asked) continue;
        previewed_[span.id] = std::move(asked);
        const auto saved = page_->saved()->indexOf(span.id);
        worker_.request({page_->site(), page_->file(), span,
                         saved ? page_->saved()->runtimeTextOf(*saved) : std::string()});
    }
    // Forget controls that are no longer in the page.
    std::erase_if(previewed_, [&](const auto& entry) { return !ids.contains(entry.first); });
    std::erase_if(previews_, [&](const auto& entry) { return !ids.contains(entry.first); });
    if (ids.empty()) showPreviewOfCurrent();
}

void PageEditor::takePreview(const std::shared_ptr<const Preview>& preview) {
    previews_[preview->controlId] = preview;
    const auto current = controls_->current();
    if (current && page_->content()->controls()[*current].id == preview->controlId)
        showPreviewOfCurrent();
}

void PageEditor::showPreviewOfCurrent() {
    const auto current = controls_->current();
    if (!current) {
        preview_->showNothing(tr("There is no control whose text could be generated."));
        return;
    }
    const auto preview = previews_.find(page_->content()->controls()[*current].id);
    if (preview != previews_.end()) preview_->showPreview(preview->second);
}

}  // namespace headerdtc::qt
