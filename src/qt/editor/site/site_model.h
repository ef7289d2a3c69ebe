#pragma once

#include "qt/editor/site/site_run.h"

#include <QAbstractItemModel>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace headerdtc::qt {

// The pages of a web project as a tree of folders, with what a check found out about each.
class SiteModel : public QAbstractItemModel {
    Q_OBJECT

  public:
    enum Column { Name, State, ColumnCount };
    enum Role { PageRole = Qt::UserRole, HasControlRole, NeedsWorkRole, InstalledRole };

    explicit SiteModel(QObject* parent = nullptr);
    ~SiteModel() override;

    // Pages below the root, sorted as findSitePages gives them. What was known of those that were
    // there before is kept. Below `installed` lies what belongs to the suite.
    void setPages(const std::filesystem::path& root,
                  const std::vector<std::filesystem::path>& pages,
                  const std::filesystem::path& installed = {});
    void setResults(const std::vector<PageResult>& results);
    const std::filesystem::path& root() const { return rootFolder_; }
    std::size_t pageCount() const { return pages_.size(); }
    int count(GeneratedPage::Verdict verdict) const;
    // What is to be done in all folders: "2 out of date, 1 not done"; empty: nothing.
    QString work() const;
    // The longest words that states are told in now.
    QStringList states() const;
    QModelIndex indexOf(const std::filesystem::path& page) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    struct Node;

    Node& nodeOf(const QModelIndex& index) const;
    Node& folderOf(const std::filesystem::path& folder);
    QVariant stateOf(const Node& node, int role) const;
    static void setResult(Node& page, const PageResult* result);

    std::filesystem::path rootFolder_;
    std::unique_ptr<Node> root_;
    std::map<std::filesystem::path, Node*> pages_;
    std::map<std::filesystem::path, PageResult> results_;
};

}  // namespace headerdtc::qt
