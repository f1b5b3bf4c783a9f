#include "files/line_blocks.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "files/record_reader.h"
#include "lines/columns.h"
#include "lines/line_reader.h"

namespace tessara::program {
namespace {

// Large enough to outweigh the cost of a job, small enough for the results to stay in the cache.
constexpr std::size_t BYTES_OF_LINES = std::size_t{1} << 16;

// A longer record of a table indicates an unclosed quote.
constexpr std::size_t LONGEST_ROW = std::size_t{1} << 20;

class LineBlocks final : public RecordBlocks {
  public:
    LineBlocks(Form form, std::string file, InputBuffer* input)
        : form_(form), file_(std::move(file)), input_(*input) {}

    std::optional<Layout> ReadLayout(const Layout& wanted) override {
        Layout layout = wanted;
        const bool hasColumns = IsTable(form_) || (form_ == Form::LINES && wanted.areTexts);
        if (!hasColumns) {
            if (form_ == Form::LINES && wanted.isForTable) LookAtFirstPosition(&layout);
            return layout;
        }

        std::size_t begin = 0;
        if (!FindFirst(&begin)) {
            // A file without records can still have comments to copy.
            return form_ == Form::LINES && !wanted.hasHeader ? std::optional(layout) : std::nullopt;
        }
        layout.separator = form_ == Form::TSV ? '\t' : SeparatorOf(RowOf(HeldLine(begin)));
        separator_ = layout.separator;
        const std::string_view whole = HeldRow(begin);
        const std::size_t size = whole.size();
        const std::vector<std::string> columns = SplitColumns(RowOf(whole), separator_);
        if (layout.hasHeader) {
            header_ = WithoutLineEnd(whole);
            layout.names = NamesOfColumns(columns);
            Take(begin);
            layout.firstLine = number_;
            Take(size);
        } else {
            for (std::size_t i = 0; i < columns.size(); ++i)
                layout.names.push_back(NameOfPlace(layout, i));
        }
        const std::vector<std::string_view> names(layout.names.begin(), layout.names.end());
        const bool isPair = !layout.hasHeader && layout.columns.empty();
        layout.at = isPair ? PositionMembers{0, 1, NO_MEMBER} : FindPosition(names, layout);
        return layout;
    }

    [[nodiscard]] std::string Header() const override { return header_; }

    bool Next(RecordBlock* block) override {
        block->error.clear();
        if (isSkipping_) SkipLine();
        while (true) {
            const std::size_t count = CountOfWholeRecords();
            if (count > 0) {
                block->number = number_;
                block->text = input_.Held().substr(0, count);
                Take(count);
                return true;
            }
            if (input_.Held().size() >= LONGEST_PIECE) return RefuseLongLine(block);
            if (!input_.ReadMore()) return TakeRest(block);
        }
    }

  private:
    // The two texts come first; numbers name the other columns.
    static std::string NameOfPlace(const Layout& layout, std::size_t place) {
        const bool isPair = layout.columns.empty() && layout.areTexts;
        if (isPair && place < 2) return place == 0 ? "north" : "east";
        return std::to_string(place + 1);
    }

    static std::string_view RowOf(std::string_view line) {
        return WithoutCarriageReturn(WithoutLineEnd(line));
    }

    // Finds the first line that is not skipped; false if there is none.
    bool FindFirst(std::size_t* begin) {
        while (true) {
            const std::string_view line = HeldLine(*begin);
            if (line.empty()) return false;
            if (!IsSkipped(line, form_)) return true;
            *begin += line.size();
        }
    }

    // Returns a whole line; at the end of the file, the rest.
    std::string_view HeldLine(std::size_t begin) {
        std::size_t end = std::string_view::npos;
        while ((end = input_.Held().find('\n', begin)) == std::string_view::npos) {
            if (input_.Held().size() - begin >= LONGEST_PIECE || !input_.ReadMore()) break;
        }
        return input_.Held().substr(begin, end == std::string_view::npos ? end : end + 1 - begin);
    }

    // Returns a whole row, which may span several lines.
    std::string_view HeldRow(std::size_t begin) {
        while (true) {
            const std::string_view row = FirstRecord(input_.Held().substr(begin), form_, separator_);
            const bool isAtEnd = begin + row.size() == input_.Held().size();
            const bool isWhole = !isAtEnd || (row.ends_with('\n') && !EndsInQuotes(row, separator_));
            if (isWhole || row.size() > LONGEST_ROW) return row;
            // The buffer moves when it reads, at the end of the file, too.
            const std::size_t size = row.size();
            if (!input_.ReadMore()) return input_.Held().substr(begin, size);
        }
    }

    // The first position decides which columns a table has for heights and other text. How far the search
    // goes depends on the text alone and not on how much of it has arrived, so that a pipe gives the same
    // results as a file.
    void LookAtFirstPosition(Layout* layout) {
        for (std::size_t begin = 0; begin < LONGEST_PIECE;) {
            const std::string_view text = HeldLine(begin);
            if (text.empty()) return;
            const Line line = ReadLineStart(WithoutLineEnd(text));
            if (line.position) {
                layout->hasHeights = line.position->height.has_value();
                if (!line.rest.empty()) layout->names = {"rest"};
                return;
            }
            begin += text.size();
        }
    }

    // The number of bytes in complete records for one block; 0 if more input is needed. While the input
    // pauses, a block holds the records so far, so that a user who types lines sees each result.
    std::size_t CountOfWholeRecords() {
        const std::string_view held = input_.Held();
        if (held.size() < BYTES_OF_LINES && input_.HasMoreAtOnce()) return 0;
        const std::size_t end = held.rfind('\n');
        if (end == std::string_view::npos) return 0;
        const std::string_view lines = held.substr(0, end + 1);
        const bool mayBeOpen = IsTable(form_) && lines.find('"') != std::string_view::npos;
        return mayBeOpen ? EndOfLastRow(lines) : lines.size();
    }

    std::size_t EndOfLastRow(std::string_view lines) const {
        std::size_t end = 0;
        while (end < lines.size()) {
            const std::string_view row = FirstRecord(lines.substr(end), form_, separator_);
            const bool isOpen = end + row.size() == lines.size() && EndsInQuotes(row, separator_);
            if (isOpen) return row.size() > LONGEST_ROW ? lines.size() : end;
            end += row.size();
        }
        return end;
    }

    bool TakeRest(RecordBlock* block) {
        if (input_.Held().empty()) return false;
        block->number = number_;
        block->text = input_.Held();
        Take(block->text.size());
        return true;
    }

    bool RefuseLongLine(RecordBlock* block) {
        block->number = number_;
        block->error = file_ + ":" + std::to_string(number_) + ": record longer than " +
                       std::to_string(LONGEST_PIECE >> 20) + " MiB\n";
        isSkipping_ = true;
        return true;
    }

    // Discards the rest of a line without buffering it.
    void SkipLine() {
        isSkipping_ = false;
        std::size_t end = std::string_view::npos;
        while ((end = input_.Held().find('\n')) == std::string_view::npos) {
            input_.Take(input_.Held().size());
            if (!input_.ReadMore()) return;
        }
        Take(end + 1);
    }

    void Take(std::size_t count) {
        const std::string_view taken = input_.Held().substr(0, count);
        number_ += static_cast<std::size_t>(std::count(taken.begin(), taken.end(), '\n'));
        input_.Take(count);
    }

    Form form_;
    std::string file_;
    InputBuffer& input_;
    char separator_ = ',';
    std::size_t number_ = 1;  // of the next line
    std::string header_;
    bool isSkipping_ = false;
};

}  // namespace

std::unique_ptr<RecordBlocks> MakeLineBlocks(Form form, const std::string& file, InputBuffer* input) {
    return std::make_unique<LineBlocks>(form, file, input);
}

}  // namespace tessara::program
