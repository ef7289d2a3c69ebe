#include "qt/editor/page/page_changes.h"

#include "qt/editor/base/step_name.h"
#include "qt/editor/page/aligned_texts.h"
#include "qt/surface/text.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <algorithm>
#include <deque>
#include <set>

namespace headerdtc::qt {
namespace {

struct Tr {
    Q_DECLARE_TR_FUNCTIONS(PageChanges)
};

// ": + 2 - CUSTNO, - 1 - ORDNO": what was added and removed, if that is short.
QString detailsOf(const QStringList& added, const QStringList& removed) {
    constexpr qsizetype MostItems = 4;
    QStringList words;
    for (const QString& text : added)
        words += QStringLiteral("+ ") + text;
    for (const QString& text : removed)
        words += QStringLiteral("\u2212 ") + text;
    if (words.isEmpty()) return {};
    if (words.size() > MostItems) {
        const qsizetype more = words.size() - MostItems;
        words = words.mid(0, MostItems);
        words += Tr::tr("and %1 more").arg(more);
    }
    return QStringLiteral(": ") + words.join(QStringLiteral(", "));
}

// The text around the controls, its title apart.
struct Around {
    QString title, rest;

    explicit Around(const PageContent& page)
        : rest(toQt(page.codePage().decode(page.aroundControls()))) {
        static const QRegularExpression element(QStringLiteral("<title[^>]*>(.*?)</title"),
                                                QRegularExpression::CaseInsensitiveOption |
                                                    QRegularExpression::DotMatchesEverythingOption);
        const auto found = element.match(rest);
        if (!found.hasMatch()) return;
        title = found.captured(1).simplified();
        rest.remove(found.capturedStart(1), found.capturedLength(1));
    }
};

void addChangesAround(const PageContent& before, const PageContent& now, QStringList& changes) {
    const Around old(before);
    const Around fresh(now);
    if (old.title != fresh.title) {
        const auto listed = [](const QString& title) {
            return title.isEmpty() ? QStringList() : QStringList{title};
        };
        changes += Tr::tr("title") + detailsOf(listed(fresh.title), listed(old.title));
    }
    const auto controls = std::max(before.controls().size(), now.controls().size());
    if (old.rest != fresh.rest)
        changes += controls == 0   ? Tr::tr("text of the page")
                   : controls == 1 ? Tr::tr("text around the control")
                                   : Tr::tr("text around the controls");
}

void addChangesOf(const ControlSpan& before, const ControlSpan& now, QStringList& changes) {
    for (const ChangedPart& part : changedParts(before.properties, now.properties))
        changes += Tr::tr("%1 of %2").arg(part.caption(), toQt(now.id)) +
                   detailsOf(part.added, part.removed);
}

// ---- merging ------------------------------------------------------------------------------------

// A page as it is merged: the lines around its controls with their line ends, and each control as
// one more line, under a name that no line of text can have (`names` holds them).
std::vector<std::string_view> piecesOf(const PageContent& page, std::deque<std::string>& names) {
    const std::string_view bytes = page.bytes();
    std::vector<std::string_view> pieces;
    std::size_t begin = 0;
    const auto addLinesUpTo = [&](std::size_t end) {
        while (begin < end) {
            std::size_t next = bytes.substr(0, end).find_first_of("\r\n", begin);
            next = next == std::string_view::npos ? end : next + 1;
            if (next < end && bytes.substr(next - 1, 2) == "\r\n") ++next;
            pieces.push_back(bytes.substr(begin, next - begin));
            begin = next;
        }
    };
    for (const ControlSpan& span : page.controls()) {
        addLinesUpTo(span.whole.begin);
        pieces.push_back(names.emplace_back('\0' + span.id));
        begin = span.whole.end;
    }
    addLinesUpTo(bytes.size());
    return pieces;
}

std::string_view textOf(const PageContent& page, const ByteRange& range) {
    return std::string_view(page.bytes()).substr(range.begin, range.size());
}

// What prevents a page from being merged at all.
bool isOdd(const PageContent& page) {
    std::set<std::string> ids;
    for (const ControlSpan& span : page.controls())
        ids.insert(span.id);
    return page.problem() || ids.size() != page.controls().size() ||
           page.aroundControls().find('\0') != std::string::npos;
}

// One control in the three pages.
struct Threefold {
    const ControlSpan* base;
    const ControlSpan* mine;
    const ControlSpan* theirs;
};

const ControlSpan* findControl(const PageContent& page, const std::string& id) {
    const auto index = page.indexOf(id);
    return index ? &page.controls()[*index] : nullptr;
}

class Merge {
  public:
    Merge(const PageContent& base, const PageContent& mine, const PageContent& theirs)
        : base_(base), mine_(mine), theirs_(theirs) {}

    MergedPage pages() const;

  private:
    Threefold controlOf(const std::string& id) const {
        return {findControl(base_, id), findControl(mine_, id), findControl(theirs_, id)};
    }
    // Whether a control was added, taken out or configured.
    bool isChanged(const ControlSpan* base, const PageContent& page, const ControlSpan* now) const {
        if (!base || !now) return base != now;
        return textOf(base_, base->markup) != textOf(page, now->markup);
    }
    bool isChangedByBoth(const std::string& id) const {
        const auto [base, mine, theirs] = controlOf(id);
        if (!isChanged(base, mine_, mine) || !isChanged(base, theirs_, theirs)) return false;
        if (!mine || !theirs) return mine != theirs;
        return textOf(mine_, mine->markup) != textOf(theirs_, theirs->markup);
    }
    std::string spanOf(const std::string& id) const;

    const PageContent& base_;
    const PageContent& mine_;
    const PageContent& theirs_;
};

// Theirs, where only the author has configured the control with the author's configuration. What is
// generated follows when the page is saved.
std::string Merge::spanOf(const std::string& id) const {
    const auto [base, mine, theirs] = controlOf(id);
    if (!theirs) return std::string(textOf(mine_, mine->whole));
    if (!mine || !isChanged(base, mine_, mine)) return std::string(textOf(theirs_, theirs->whole));
    return std::string(textOf(mine_, mine->markup))
        .append(textOf(theirs_, {theirs->markup.end, theirs->whole.end}));
}

MergedPage Merge::pages() const {
    for (const PageContent* page : {&base_, &mine_, &theirs_}) {
        if (isOdd(*page) || !(page->codePage() == base_.codePage()))
            return {{}, Tr::tr("the controls of one of the two cannot be told apart")};
    }
    for (const PageContent* page : {&mine_, &theirs_, &base_}) {
        for (const ControlSpan& span : page->controls()) {
            if (isChangedByBoth(span.id))
                return {{}, Tr::tr("both have changed %1").arg(toQt(span.id))};
        }
    }
    std::deque<std::string> names;
    const auto base = piecesOf(base_, names);
    const auto mine = piecesOf(mine_, names);
    const auto theirs = piecesOf(theirs_, names);
    const MergedLines merged = mergeLines(alignLines(base, mine, theirs));
    if (merged.conflict) {
        const std::string text = base_.codePage().decode(*merged.conflict);
        return {{},
                Tr::tr("both have changed the text at \u201C%1\u201D")
                    .arg(toQt(text).remove(QChar()).simplified().left(60))};
    }
    std::string bytes;
    for (const std::string_view piece : merged.lines) {
        if (piece.starts_with('\0')) {
            bytes += spanOf(std::string(piece.substr(1)));
        } else {
            bytes += piece;
        }
    }
    if (isOdd(PageContent({}, bytes, base_.codePage())))
        return {{}, Tr::tr("what both have changed does not go together")};
    return {std::move(bytes), {}};
}

}  // namespace

QStringList changesInWords(const PageContent& before, const PageContent& now) {
    QStringList changes;
    for (const PageContent* page : {&before, &now}) {
        if (page->problem()) return {Tr::tr("text of the page")};
    }
    for (const ControlSpan& span : now.controls()) {
        if (const ControlSpan* old = findControl(before, span.id)) {
            addChangesOf(*old, span, changes);
        } else {
            changes += Tr::tr("new control %1").arg(toQt(span.id));
        }
    }
    for (const ControlSpan& span : before.controls()) {
        if (!now.indexOf(span.id)) changes += Tr::tr("control %1 is taken out").arg(toQt(span.id));
    }
    addChangesAround(before, now, changes);
    // Generated text follows from the rest; it is named only when nothing else has changed.
    if (changes.isEmpty() && before.bytes() != now.bytes())
        changes += Tr::tr("generated text, or how the same is written");
    return changes;
}

QString bulleted(QStringList parts) {
    constexpr qsizetype MostLines = 12;
    if (parts.size() > MostLines) {
        const qsizetype more = parts.size() - MostLines + 1;
        parts = parts.mid(0, MostLines - 1);
        parts += Tr::tr("and %1 more").arg(more);
    }
    return QStringLiteral("\u2022 ") + parts.join(QStringLiteral("\n\u2022 "));
}

MergedPage mergePages(const PageContent& base, const PageContent& mine, const PageContent& theirs) {
    return Merge(base, mine, theirs).pages();
}

}  // namespace headerdtc::qt
