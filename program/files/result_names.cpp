#include "files/result_names.h"

#include <unordered_set>
#include <utility>

namespace tessara::program {
namespace {

// A set of unique names. Existing names keep priority.
class TakenNames {
  public:
    explicit TakenNames(const std::vector<std::string>& taken) : taken_(taken.begin(), taken.end()) {}

    std::string Take(std::string name, const std::string& suffix) {
        while (!taken_.insert(name).second)
            name += suffix;
        return name;
    }

  private:
    std::unordered_set<std::string> taken_;
};

// The number of texts of a position; records of JSON may differ.
std::size_t CountOf(const Layout& layout) {
    if (IsJson(layout.form)) return layout.columns.size() == 1 ? 1 : 2;
    return layout.at.north == layout.at.east ? 1 : 2;
}

}  // namespace

ResultNames NameResults(const RecordConversion& conversion, const Layout& layout) {
    ResultNames results;
    TakenNames names(layout.kept);
    for (const Reference& target : conversion.to) {
        const std::string suffix = " " + target.Name();
        const std::size_t count = conversion.texts ? CountTexts(conversion, target) : 0;
        std::vector<std::string> values;
        for (const Field& value : ValuesOf(conversion, target)) {
            std::string name = value.name;
            // Texts keep the names of the texts that they replace if both have the same count.
            const bool isText = conversion.texts && layout.areTexts && values.size() < count;
            const bool areAsMany = isText && count == CountOf(layout);
            const std::size_t replaced = values.empty() ? layout.at.north : layout.at.east;
            if (areAsMany && layout.hasHeader && replaced < layout.names.size())
                name = layout.names[replaced];
            if (areAsMany && IsJson(layout.form) && !layout.columns.empty())
                name = layout.columns[values.size()];
            if (conversion.to.size() > 1) name += suffix;
            values.push_back(names.Take(std::move(name), suffix));
        }
        results.values.push_back(std::move(values));
    }
    results.height = names.Take("height", " of the position");
    return results;
}

void KeepColumns(const RecordConversion& conversion, Layout* layout) {
    for (std::size_t i = 0; i < layout->names.size(); ++i) {
        if (i == layout->at.north) layout->resultsAt = layout->kept.size();
        if (!IsReplaced(conversion, layout->at, i)) layout->kept.push_back(layout->names[i]);
    }
}

}  // namespace tessara::program
