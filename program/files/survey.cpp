#include "files/survey.h"

#include <string_view>
#include <unordered_set>
#include <vector>

#include "files/record_blocks.h"
#include "files/record_reader.h"
#include "files/result_names.h"

namespace tessara::program {
namespace {

// The names of members in the order of their first use.
class KeptNames {
  public:
    explicit KeptNames(std::vector<std::string>* kept) : kept_(*kept) {}

    // Records often have the same members in the same order, so that the next name is the best guess.
    void Add(std::string_view name) {
        if (next_ < kept_.size() && kept_[next_] == name) {
            ++next_;
            return;
        }
        const auto [place, isNew] = known_.insert(std::string(name));
        if (isNew) kept_.push_back(*place);
    }

    void BeginRecord() { next_ = 0; }

  private:
    std::vector<std::string>& kept_;
    std::size_t next_ = 0;
    std::unordered_set<std::string> known_;
};

}  // namespace

bool NeedsSurvey(const RecordConversion& conversion, Form input) {
    const bool hasNames = IsTable(conversion.output) || !conversion.to.empty();
    return IsJson(input) && conversion.output != Form::LINES && hasNames;
}

void Survey(const RecordConversion& conversion, InputBuffer* input, Layout* layout) {
    const std::unique_ptr<RecordBlocks> blocks = MakeRecordBlocks(layout->form, layout->file, input);
    const std::optional<Layout> file = blocks->ReadLayout(*layout);
    KeptNames names(&layout->kept);
    bool isFirst = true;
    const auto add = [&](const Record& record) {
        names.BeginRecord();
        for (std::size_t i = 0; i < record.members.size(); ++i) {
            if (isFirst && i == record.at.north) layout->resultsAt = layout->kept.size();
            if (!IsReplaced(conversion, record.at, i)) names.Add(record.members[i].name);
        }
        isFirst = isFirst && record.at.north == NO_MEMBER;
        for (const Position& position : record.positions)
            layout->hasHeights = layout->hasHeights || position.height.has_value();
    };
    for (RecordBlock block; file && blocks->Next(&block);) {
        if (!block.error.empty()) continue;
        // Only a table needs to know whether any record has a height.
        if (IsTable(conversion.output)) {
            ReadRecords(*file, block.number, block.text, add);
        } else {
            ReadMembers(*file, block.text, add);
        }
    }
}

}  // namespace tessara::program
