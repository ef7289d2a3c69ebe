#include "host/generation/page_change.h"
#include "host/generation/page_generation.h"
#include "host/inspection/finding.h"
#include "host/inspection/provider_fields.h"
#include "host/page/quiet_host.h"
#include "host/rename/rename.h"

#include <algorithm>
#include <utility>

namespace headerdtc {
namespace {

using Outcome = PageChange::Outcome;

// The data sources of a site, which know a provider by its old and by its new name: the catalogue
// is brought up to date before the pages are, or after.
class BothNames : public DataSourceFactory {
  public:
    BothNames(DataSourceFactory& sources, const Renaming& renaming)
        : sources_(sources), renaming_(renaming) {}

    std::unique_ptr<DataSource> createDataSource() override {
        return std::make_unique<Source>(sources_.createDataSource(), renaming_);
    }

  private:
    class Source : public DataSource {
      public:
        Source(std::unique_ptr<DataSource> source, const Renaming& renaming)
            : source_(std::move(source)), renaming_(renaming) {}

        std::vector<std::string> providerNames() override {
            auto names = source_->providerNames();
            for (const std::string& name : {renaming_.provider, renaming_.newProvider}) {
                if (std::find(names.begin(), names.end(), name) == names.end())
                    names.push_back(name);
            }
            return names;
        }
        Dictionary<std::string> zekoFields(const std::string& provider) override {
            return source_->zekoFields(provider);
        }
        Dictionary<std::string> zekoKeyFields(const std::string& provider) override {
            return source_->zekoKeyFields(provider);
        }
        Dictionary<std::string> eaiGroups(const std::string& provider) override {
            return source_->eaiGroups(provider);
        }
        Dictionary<std::string> eaiGroupFields(const std::string& provider,
                                               const std::string& group) override {
            return source_->eaiGroupFields(provider, group);
        }
        Dictionary<std::string> eaiKeyFields(const std::string& provider) override {
            return source_->eaiKeyFields(provider);
        }

      private:
        std::unique_ptr<DataSource> source_;
        const Renaming& renaming_;
    };

    DataSourceFactory& sources_;
    const Renaming& renaming_;
};

class PageRename {
  public:
    PageRename(const std::filesystem::path& page, Sites& sites, const Renaming& renaming,
               PageRenaming& result)
        : page_(page),
          site_(sites.forPage(page)),
          sources_(site_->dataSources, renaming),
          renaming_(renaming),
          result_(result) {}

    void rename() {
        WholeFile file = readWholeFile(page_);
        result_.stamp = file.stamp;
        PageMarkup markup(page_.string(), std::move(file.bytes), site_->configuration->codePage);
        if (markup.controls().empty()) return;
        result_.outcome = Outcome::Unchanged;
        std::vector<std::pair<std::size_t, ControlContent>> changed;
        for (std::size_t i = 0; i < markup.controls().size(); ++i) {
            if (auto content = renameIn(markup, markup.controls()[i]))
                changed.emplace_back(i, std::move(*content));
        }
        if (!result_.failures.empty()) result_.outcome = Outcome::Failed;
        if (!result_.failures.empty() || changed.empty()) return;
        auto contents = contentsOf(markup);
        for (auto& [index, content] : changed)
            contents[index] = std::move(content);
        result_.after = markup.readableWith(contents);
        result_.before = std::move(markup).bytes();
        result_.outcome = Outcome::Changed;
    }

  private:
    std::optional<ControlContent> renameIn(const PageMarkup& markup, const ControlSpan& span) {
        StoredRenaming renamed = renameStored(span.properties, renaming_);
        if (renamed.texts.empty()) return std::nullopt;
        for (RenamedText& text : renamed.texts)
            result_.names.push_back({span.id, std::move(text)});
        if (!renamed.conflict.empty()) {
            result_.failures.push_back("left as it was: " + renamed.conflict + place(span) +
                                       "; take one of them out in the page editor");
            return std::nullopt;
        }
        ControlSpan after = span;
        after.properties = std::move(renamed.properties);
        const MadeContent old = made(span), now = made(after);
        ControlContent content{span.id, after.properties, markup.runtimeTextOf(span)};
        // What would be lost before is no matter of the names: the script is left out of it.
        const bool isLossy = old.doubt && old.doubt->kind == SaveDoubt::Kind::Loss;
        const auto& doubt = old.doubt && !isLossy ? old.doubt : now.doubt;
        if (doubt && (!isLossy || doubt->kind == SaveDoubt::Kind::Failure)) {
            result_.failures.push_back(leftAlone(span, *doubt));
            return std::nullopt;
        }
        if (isLossy || old.content.runtimeText != content.runtimeText) {
            result_.isGenerated = false;
            result_.messages.push_back("the script was not up to date, so it stays as it is" +
                                       place(span) + "; 'headerdtc generate' makes it anew");
            return content;
        }
        content.runtimeText = now.content.runtimeText;
        const auto told = referencesTold(span, content.runtimeText, markup.codePage());
        if (told) result_.messages.push_back(*told);
        return content;
    }

    static std::string place(const ControlSpan& span) {
        return " (" + span.id + ", line " + std::to_string(span.line) + ")";
    }

    MadeContent made(const ControlSpan& span) {
        QuietHost host;
        HostFaces faces = host.faces();
        faces.dataSources = &sources_;
        return OpenControl(site_, page_, span, faces).content();
    }

    const std::filesystem::path& page_;
    const std::shared_ptr<Site> site_;
    BothNames sources_;
    const Renaming& renaming_;
    PageRenaming& result_;
};

}  // namespace

PageRenaming renameInPage(const std::filesystem::path& page, Sites& sites,
                          const Renaming& renaming) {
    PageRenaming result;
    result.attempt(page, [&] { PageRename(page, sites, renaming, result).rename(); });
    return result;
}

std::string missingInCatalogue(Site& site, const Renaming& renaming) {
    const auto catalogue = site.dataSources.current();
    const Catalogue::Provider* provider = catalogue->find(renaming.newProvider);
    const std::string file = site.configuration->catalogue.string();
    if (!provider) return file + ": has no data provider " + inQuotes(renaming.newProvider);
    if (!renaming.isOfField()) return {};
    for (const Family family : BothFamilies) {
        const ProviderFields fields(*provider, family);
        if (renaming.entry.empty() ? fields.hasName(renaming.newField)
                                   : fields.hasEntry(renaming.newEntry))
            return {};
    }
    return file + ": " + inQuotes(renaming.newProvider) + " has no field " +
           inQuotes(renaming.entry.empty() ? renaming.newField : renaming.newEntry);
}

}  // namespace headerdtc
