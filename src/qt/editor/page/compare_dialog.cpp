#include "qt/editor/page/compare_dialog.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>

namespace headerdtc::qt {
namespace {

enum Side { Base, Mine, Theirs, PaneCount };

constexpr const char* PaneNames[PaneCount] = {
    QT_TRANSLATE_NOOP("headerdtc::qt::CompareDialog", "As it was read"),
    QT_TRANSLATE_NOOP("headerdtc::qt::CompareDialog", "Mine, in the editor"),
    QT_TRANSLATE_NOOP("headerdtc::qt::CompareDialog", "Theirs, on disk")};

QLabel* heading(const char* name) {
    auto* label = new QLabel(CompareDialog::tr(name));
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    return label;
}

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
    : QDialog(parent), states_{&base, &mine, &theirs}, merged_(mergePages(base, mine, theirs)) {
    setObjectName(QStringLiteral("CompareDialog"));
    setWindowTitle(tr("Compare %1").arg(title));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(
        new QLabel(tr("Somebody else has saved this page since it was read into the editor.")));
    layout->addLayout(changes());
    if (!merged_.bytes) {
        auto* obstacle = new QLabel(tr("Both cannot be taken together: %1.").arg(merged_.obstacle));
        obstacle->setTextFormat(Qt::PlainText);
        obstacle->setWordWrap(true);
        layout->addWidget(obstacle);
    }
    QWidget* lines = makeLines();
    layout->addWidget(lines, 1);
    layout->addSpacing(layout->spacing());
    layout->addLayout(makeAnswers(*lines));
    lines->hide();
    resize(760, sizeHint().height());
    showPart(parts_->currentIndex());
}

// What each of the two has done, side by side.
QLayout* CompareDialog::changes() const {
    auto* columns = new QGridLayout;
    columns->setHorizontalSpacing(24);
    for (const int side : {Mine, Theirs}) {
        auto* parts = new QLabel(bulleted(changesInWords(*states_[Base], *states_[side])));
        parts->setObjectName(QStringLiteral("Changes%1").arg(side));
        parts->setTextFormat(Qt::PlainText);
        parts->setTextInteractionFlags(Qt::TextSelectableByMouse);
        parts->setWordWrap(true);
        columns->addWidget(heading(PaneNames[side]), 0, side);
        columns->addWidget(parts, 1, side, Qt::AlignTop);
        columns->setColumnStretch(side, 1);
    }
    return columns;
}

QLayout* CompareDialog::makeAnswers(QWidget& lines) {
    auto* buttons = new QDialogButtonBox(this);
    const auto answer = [&](const QString& text, const QString& tip, Answer answer) {
        auto* button = buttons->addButton(text, QDialogButtonBox::AcceptRole);
        button->setToolTip(tip);
        connect(button, &QPushButton::clicked, this, [this, answer] {
            answer_ = answer;
            accept();
        });
        return button;
    };
    answer(tr("&Keep mine"), tr("The next save replaces what is on disk"), Answer::KeepMine);
    answer(tr("&Take theirs"), tr("The page becomes what is on disk; undo brings yours back"),
           Answer::TakeTheirs);
    const bool onlyControls = states_[Base]->aroundControls() == states_[Mine]->aroundControls();
    answer(onlyControls ? tr("T&heirs, with my control") : tr("T&heirs, with my changes"),
           tr("The page becomes what is on disk, with what you have changed; undo brings yours "
              "back"),
           Answer::TakeBoth)
        ->setEnabled(merged_.bytes.has_value());
    auto* later = buttons->addButton(tr("Decide &later"), QDialogButtonBox::RejectRole);
    connect(later, &QPushButton::clicked, this, &QDialog::reject);
    // Enter, pressed without a look, does what Escape does.
    later->setDefault(true);
    later->setFocus();

    auto* show = new QPushButton(tr("&Show lines"));
    show->setCheckable(true);
    show->setAutoDefault(false);
    connect(show, &QPushButton::toggled, this, [this, &lines](bool shown) {
        const QPoint centre = geometry().center();
        lines.setVisible(shown);
        resize(shown ? QSize(1100, 700) : QSize(760, sizeHint().height()));
        move(centre - rect().center());
    });
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(show);
    bottom->addStretch();
    bottom->addWidget(buttons);
    return bottom;
}

QWidget* CompareDialog::makeLines() {
    auto* panes = new QGridLayout;
    panes->setHorizontalSpacing(4);
    for (std::size_t i = 0; i < PaneCount; ++i) {
        const auto column = static_cast<int>(i);
        panes_[i] = new QPlainTextEdit;
        panes_[i]->setObjectName(QStringLiteral("ComparePane%1").arg(i));
        panes_[i]->setAccessibleName(tr(PaneNames[i]));
        panes_[i]->setReadOnly(true);
        panes_[i]->setTextInteractionFlags(Qt::TextSelectableByMouse |
                                           Qt::TextSelectableByKeyboard);
        panes_[i]->setLineWrapMode(QPlainTextEdit::NoWrap);
        panes_[i]->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        panes_[i]->setTabStopDistance(4 *
                                      panes_[i]->fontMetrics().horizontalAdvance(QLatin1Char(' ')));
        counts_[i] = new QLabel;
        panes->addWidget(heading(PaneNames[i]), 0, column);
        panes->addWidget(panes_[i], 1, column);
        panes->addWidget(counts_[i], 2, column);
        panes->setColumnStretch(column, 1);
    }
    scrollTogether();
    parts_ = new QComboBox;
    parts_->setObjectName(QStringLiteral("ComparePart"));
    parts_->setAccessibleName(tr("Part of the page"));
    addParts();
    connect(parts_, &QComboBox::currentIndexChanged, this, &CompareDialog::showPart);
    auto* caption = new QLabel(tr("L&ines of:"));
    caption->setBuddy(parts_);
    auto* top = new QHBoxLayout;
    top->addWidget(caption);
    top->addWidget(parts_);
    top->addStretch();
    for (const int direction : {-1, 1}) {
        auto* button = direction < 0
                           ? new QPushButton(editorIcon("go-up"), tr("&Previous difference"))
                           : new QPushButton(editorIcon("go-down"), tr("&Next difference"));
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this,
                [this, direction] { goToDifference(direction); });
        top->addWidget(button);
    }
    auto* lines = new QWidget;
    auto* layout = new QVBoxLayout(lines);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addLayout(panes, 1);
    return lines;
}

// The whole page comes first; a control is shown at once when nothing differs around it.
void CompareDialog::addParts() {
    parts_->addItem(tr("The whole page"));
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
        parts_->addItem(differs ? name : tr("%1 (no difference)").arg(name), name);
        if (differs && differing == 0) differing = parts_->count() - 1;
    }
    const std::string around = states_[0]->aroundControls();
    const bool onlyControls =
        around == states_[1]->aroundControls() && around == states_[2]->aroundControls();
    if (onlyControls) parts_->setCurrentIndex(differing);
}

void CompareDialog::showPart(int part) {
    const std::string id = parts_->itemData(part).toString().toStdString();
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
