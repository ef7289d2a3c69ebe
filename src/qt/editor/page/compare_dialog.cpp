#include "qt/editor/page/compare_dialog.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"
#include "ui_compare_dialog.h"

#include <QFontDatabase>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

namespace headerdtc::qt {
namespace {

enum Side { Base, Mine, Theirs, PaneCount };

// The span of a control, empty where the page has none of that ID.
std::string spanOf(const PageContent& content, const std::string& id) {
    const auto index = content.indexOf(id);
    if (!index) return {};
    const ByteRange& whole = content.controls()[*index].whole;
    return content.bytes().substr(whole.begin, whole.size());
}

}  // namespace

CompareDialog::CompareDialog(const QString& title, const PageContent& base, const PageContent& mine,
                             const PageContent& theirs, QWidget* parent)
    : QDialog(parent),
      states_{&base, &mine, &theirs},
      merged_(mergePages(base, mine, theirs)),
      ui_(std::make_unique<Ui::CompareDialog>()) {
    ui_->setupUi(this);
    setIcons(*this);
    panes_ = {ui_->ComparePane0, ui_->ComparePane1, ui_->ComparePane2};
    counts_ = {ui_->DifferenceCount0, ui_->DifferenceCount1, ui_->DifferenceCount2};
    setWindowTitle(tr("Compare %1").arg(title));
    // A gap above the answers, even while the lines are hidden.
    QVBoxLayout& layout = *ui_->dialogLayout;
    layout.insertSpacing(layout.indexOf(ui_->answerLayout), layout.spacing());
    showChanges();
    setUpLines();

    addAnswer(*ui_->KeepMineButton, Answer::KeepMine);
    addAnswer(*ui_->TakeTheirsButton, Answer::TakeTheirs);
    addAnswer(*ui_->TakeBothButton, Answer::TakeBoth);
    if (base.aroundControls() == mine.aroundControls())
        ui_->TakeBothButton->setText(tr("T&heirs, with my control"));
    ui_->TakeBothButton->setEnabled(merged_.bytes.has_value());
    // Enter, pressed without a look, does what Escape does: this button is the form's default.
    ui_->AnswerButtons->addButton(ui_->LaterButton, QDialogButtonBox::RejectRole);
    connect(ui_->LaterButton, &QPushButton::clicked, this, &QDialog::reject);
    ui_->LaterButton->setFocus();
    resize(760, sizeHint().height());
    showPart(ui_->ComparePart->currentIndex());
}

CompareDialog::~CompareDialog() = default;

// What each of the two has done, side by side.
void CompareDialog::showChanges() {
    const auto words = [this](Side side) {
        return bulleted(changesInWords(*states_[Base], *states_[side]));
    };
    ui_->Changes1->setText(words(Mine));
    ui_->Changes2->setText(words(Theirs));
    ui_->ObstacleLabel->setVisible(!merged_.bytes);
    if (!merged_.bytes)
        ui_->ObstacleLabel->setText(tr("Both cannot be taken together: %1.").arg(merged_.obstacle));
}

void CompareDialog::addAnswer(QPushButton& button, Answer answer) {
    ui_->AnswerButtons->addButton(&button, QDialogButtonBox::AcceptRole);
    connect(&button, &QPushButton::clicked, this, [this, answer] {
        answer_ = answer;
        accept();
    });
}

void CompareDialog::setUpLines() {
    for (QPlainTextEdit* pane : panes_) {
        pane->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        pane->setTabStopDistance(4 * pane->fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    }
    scrollTogether();
    addParts();
    connect(ui_->ComparePart, &QComboBox::currentIndexChanged, this, &CompareDialog::showPart);
    connect(ui_->PreviousDifference, &QPushButton::clicked, this, [this] { goToDifference(-1); });
    connect(ui_->NextDifference, &QPushButton::clicked, this, [this] { goToDifference(1); });
    ui_->CompareLines->hide();
    connect(ui_->ShowLines, &QPushButton::toggled, this, [this](bool shown) {
        const QPoint centre = geometry().center();
        ui_->CompareLines->setVisible(shown);
        resize(shown ? QSize(1100, 700) : QSize(760, sizeHint().height()));
        move(centre - rect().center());
    });
}

// The whole page comes first; a control is shown at once when nothing differs around it.
void CompareDialog::addParts() {
    ui_->ComparePart->addItem(tr("The whole page"));
    std::vector<std::string> ids;
    for (const PageContent* state : states_) {
        for (const ControlSpan& span : state->controls()) {
            if (std::find(ids.begin(), ids.end(), span.id) == ids.end()) ids.push_back(span.id);
        }
    }
    int differing = 0;
    for (const std::string& id : ids) {
        const std::string base = spanOf(*states_[0], id);
        const bool differs = base != spanOf(*states_[1], id) || base != spanOf(*states_[2], id);
        const QString name = QString::fromStdString(id);
        ui_->ComparePart->addItem(differs ? name : tr("%1 (no difference)").arg(name), name);
        if (differs && differing == 0) differing = ui_->ComparePart->count() - 1;
    }
    const std::string around = states_[0]->aroundControls();
    const bool onlyControls =
        around == states_[1]->aroundControls() && around == states_[2]->aroundControls();
    if (onlyControls) ui_->ComparePart->setCurrentIndex(differing);
}

void CompareDialog::showPart(int part) {
    const std::string id = ui_->ComparePart->itemData(part).toString().toStdString();
    std::array<std::string, PaneCount> texts;
    for (std::size_t i = 0; i < PaneCount; ++i) {
        const PageContent& state = *states_[i];
        texts[i] = state.codePage().decode(id.empty() ? state.bytes() : spanOf(state, id));
    }
    differences_.clear();
    shown_ = -1;
    fill(alignTexts(texts[0], texts[1], texts[2]));
    if (!differences_.empty()) goToDifference(1);
}

void CompareDialog::fill(const std::vector<AlignedRow>& rows) {
    const bool dark = palette().color(QPalette::Base).lightnessF() < 0.5;
    const QColor changed[PaneCount] = {
        dark ? QColor(0x4a, 0x3a, 0x14) : QColor(0xfb, 0xef, 0xd0),
        dark ? QColor(0x1f, 0x4a, 0x2c) : QColor(0xd8, 0xf3, 0xdc),
        dark ? QColor(0x22, 0x36, 0x4f) : QColor(0xdf, 0xea, 0xf8),
    };
    const QColor missing = palette().color(QPalette::AlternateBase).darker(dark ? 80 : 106);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].differs() && (i == 0 || !rows[i - 1].differs()))
            differences_.push_back(static_cast<int>(i));
    }
    for (std::size_t pane = 0; pane < PaneCount; ++pane) {
        QString text;
        int added = 0;
        int removed = 0;
        for (const AlignedRow& row : rows) {
            const std::string_view line = row.cells[pane].text;
            text += QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
            text += QLatin1Char('\n');
            added += row.cells[pane].changed ? 1 : 0;
            removed += row.cells[0].present && !row.cells[pane].present ? 1 : 0;
        }
        text.chop(1);
        panes_[pane]->setPlainText(text);
        QList<QTextEdit::ExtraSelection> marks;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const AlignedRow::Cell& cell = rows[i].cells[pane];
            if (cell.present && !cell.changed) continue;
            QTextEdit::ExtraSelection mark;
            mark.cursor =
                QTextCursor(panes_[pane]->document()->findBlockByNumber(static_cast<int>(i)));
            mark.format.setBackground(cell.present ? changed[pane] : missing);
            mark.format.setProperty(QTextFormat::FullWidthSelection, true);
            marks.push_back(mark);
        }
        panes_[pane]->setExtraSelections(marks);
        counts_[pane]->setText(
            pane == 0 ? counted(static_cast<int>(differences_.size()), "difference since",
                                "differences since")
            : added + removed == 0
                ? tr("no difference")
                : tr("%1 new, %2 removed").arg(counted(added, "line", "lines")).arg(removed));
    }
}

void CompareDialog::scrollTogether() {
    for (const QPlainTextEdit* from : panes_) {
        for (const QPlainTextEdit* to : panes_) {
            if (from == to) continue;
            connect(from->verticalScrollBar(), &QScrollBar::valueChanged, to->verticalScrollBar(),
                    &QScrollBar::setValue);
            connect(from->horizontalScrollBar(), &QScrollBar::valueChanged,
                    to->horizontalScrollBar(), &QScrollBar::setValue);
        }
    }
}

void CompareDialog::goToDifference(int direction) {
    if (differences_.empty()) return;
    const auto count = static_cast<int>(differences_.size());
    shown_ = (shown_ + direction + count) % count;
    const int line = differences_[static_cast<std::size_t>(shown_)];
    for (QPlainTextEdit* pane : panes_) {
        pane->setTextCursor(QTextCursor(pane->document()->findBlockByNumber(line)));
        pane->centerCursor();
    }
}

}  // namespace headerdtc::qt
