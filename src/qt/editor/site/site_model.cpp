#include "qt/editor/site/site_model.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"

#include <algorithm>
#include <functional>

namespace headerdtc::qt {
namespace {

namespace fs = std::filesystem;
using Verdict = GeneratedPage::Verdict;

// From the best to the worst.
constexpr Verdict Verdicts[] = {Verdict::NoControl,    Verdict::UpToDate, Verdict::Stale,
                                Verdict::Losing,       Verdict::Failing,  Verdict::NotReadable,
                                Verdict::NotConfigured};

bool needsWork(Verdict verdict) {
    return verdict != Verdict::NoControl && verdict != Verdict::UpToDate;
}

// A page that was written is as it should be now.
Verdict nowOf(const PageResult& result) {
    return result.written ? Verdict::UpToDate : result.verdict;
}

}  // namespace

struct SiteModel::Node {
    Node* parent = nullptr;
    QString name;
    fs::path path;
    bool isPage = false;
    bool isInstalled = false;
    const PageResult* result = nullptr;
    int row = 0;
    std::vector<std::unique_ptr<Node>> children;
    std::map<fs::path, Node*> folders;
    std::map<Verdict, int> counts;  // of the pages in it

    int count(Verdict verdict) const {
        const auto found = counts.find(verdict);
        return found == counts.end() ? 0 : found->second;
    }
    QString work() const {
        QStringList parts;
        if (const int stale = count(Verdict::Stale); stale > 0)
            parts += tr("%1 out of date").arg(stale);
        int failed = 0;
        for (const Verdict verdict : Verdicts)
            if (verdict > Verdict::Stale) failed += count(verdict);
        if (failed > 0) parts += tr("%1 not done").arg(failed);
        return parts.join(QLatin1String(", "));
    }
    // The icon of the worst page in it.
    const char* icon() const {
        for (auto verdict = std::rbegin(Verdicts); verdict != std::rend(Verdicts); ++verdict)
            if (needsWork(*verdict) && count(*verdict) > 0) return iconOf(*verdict);
        return "";
    }
};

SiteModel::SiteModel(QObject* parent)
    : QAbstractItemModel(parent), root_(std::make_unique<Node>()) {}

SiteModel::~SiteModel() = default;

SiteModel::Node& SiteModel::folderOf(const fs::path& folder) {
    if (folder == rootFolder_ || !folder.has_relative_path()) return *root_;
    Node& parent = folderOf(folder.parent_path());
    Node*& found = parent.folders[folder];
    if (found) return *found;
    auto node = std::make_unique<Node>();
    node->parent = &parent;
    node->name = toName(folder.filename());
    node->path = folder;
    node->row = static_cast<int>(parent.children.size());
    found = node.get();
    parent.children.push_back(std::move(node));
    return *found;
}

void SiteModel::setPages(const fs::path& root, const std::vector<fs::path>& pages,
                         const fs::path& installed) {
    beginResetModel();
    rootFolder_ = root;
    root_ = std::make_unique<Node>();
    pages_.clear();
    for (const fs::path& page : pages) {
        Node& folder = folderOf(page.parent_path());
        auto node = std::make_unique<Node>();
        node->parent = &folder;
        node->name = toName(page.filename());
        node->path = page;
        node->isPage = true;
        node->isInstalled = !installed.empty() && isBelow(page, installed);
        node->row = static_cast<int>(folder.children.size());
        pages_[page] = node.get();
        folder.children.push_back(std::move(node));
    }
    std::erase_if(results_, [&](const auto& result) { return !pages_.contains(result.first); });
    for (const auto& [page, result] : results_)
        setResult(*pages_[page], &result);
    endResetModel();
}

void SiteModel::setResult(Node& page, const PageResult* result) {
    page.result = result;
    for (Node* folder = page.parent; folder; folder = folder->parent)
        ++folder->counts[nowOf(*result)];
}

void SiteModel::setResults(const std::vector<PageResult>& results) {
    for (const PageResult& result : results) {
        const QModelIndex changed = indexOf(result.page);
        if (!changed.isValid()) continue;
        Node& page = nodeOf(changed);
        for (Node* folder = page.parent; page.result && folder; folder = folder->parent)
            --folder->counts[nowOf(*page.result)];
        setResult(page, &(results_[result.page] = result));
        // Folders tell of what is in them, too.
        for (QModelIndex node = changed; node.isValid(); node = parent(node))
            Q_EMIT dataChanged(node.siblingAtColumn(Name), node.siblingAtColumn(State));
    }
}

int SiteModel::count(Verdict verdict) const {
    return root_->count(verdict);
}

QString SiteModel::work() const {
    return root_->work();
}

QStringList SiteModel::states() const {
    QStringList words;
    for (const Verdict verdict : Verdicts)
        if (root_->count(verdict) > 0) words += wordOf(verdict);
    const std::function<void(const Node&)> addFolder = [&](const Node& folder) {
        if (!folder.work().isEmpty()) words += folder.work();
        for (const auto& [_, inner] : folder.folders)
            addFolder(*inner);
    };
    addFolder(*root_);
    return words;
}

QModelIndex SiteModel::indexOf(const fs::path& page) const {
    const auto found = pages_.find(page);
    return found == pages_.end() ? QModelIndex()
                                 : createIndex(found->second->row, Name, found->second);
}

SiteModel::Node& SiteModel::nodeOf(const QModelIndex& index) const {
    return index.isValid() ? *static_cast<Node*>(index.internalPointer()) : *root_;
}

QModelIndex SiteModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) return {};
    return createIndex(row, column, nodeOf(parent).children[static_cast<std::size_t>(row)].get());
}

QModelIndex SiteModel::parent(const QModelIndex& index) const {
    if (!index.isValid()) return {};
    Node* parent = nodeOf(index).parent;
    return parent == root_.get() ? QModelIndex() : createIndex(parent->row, Name, parent);
}

int SiteModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : static_cast<int>(nodeOf(parent).children.size());
}

int SiteModel::columnCount(const QModelIndex&) const {
    return ColumnCount;
}

QVariant SiteModel::data(const QModelIndex& index, int role) const {
    const Node& node = nodeOf(index);
    switch (role) {
        case PageRole:
            return node.isPage ? toName(node.path) : QVariant();
        case Qt::DisplayRole:
            if (index.column() == Name) return node.name;
            break;
        case Qt::ToolTipRole:
            if (index.column() == Name) return toName(node.path);
            break;
        case Qt::DecorationRole:
            if (index.column() == Name) return editorIcon(node.isPage ? "text-html" : "folder");
            break;
        default:
            break;
    }
    return stateOf(node, role);
}

QVariant SiteModel::stateOf(const Node& node, int role) const {
    if (role == InstalledRole) return node.isInstalled;
    if (!node.isPage) {
        const QString work = node.work();
        if (work.isEmpty()) return {};
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return work;
        return role == Qt::DecorationRole ? QVariant(editorIcon(node.icon())) : QVariant();
    }
    if (!node.result) return {};
    const Verdict now = nowOf(*node.result);
    switch (role) {
        case HasControlRole:
            return now != Verdict::NoControl;
        case NeedsWorkRole:
            return needsWork(now);
        case Qt::DisplayRole:
            return wordOf(now);
        case Qt::DecorationRole:
            return *iconOf(now) ? editorIcon(iconOf(now)) : QVariant();
        case Qt::ToolTipRole: {
            QStringList lines{wordOf(now)};
            for (const Message& message : node.result->messages)
                lines += message.text;
            return lines.join(QLatin1Char('\n'));
        }
        default:
            return {};
    }
}

QVariant SiteModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return section == Name ? tr("Page") : tr("State");
}

}  // namespace headerdtc::qt
