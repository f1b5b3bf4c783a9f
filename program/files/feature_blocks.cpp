#include "files/feature_blocks.h"

#include <optional>
#include <string_view>
#include <utility>

#include "files/geometry.h"
#include "files/json_scan.h"

namespace tessara::program {
namespace {

constexpr std::size_t BYTES_OF_FEATURES = std::size_t{1} << 17;

std::string MemberOf(std::string_view object, std::string_view wanted) {
    std::string found;
    JsonScan scan(object);
    if (scan.Peek() != '{') return found;
    scan.Object([&](std::string_view name) {
        const std::string_view value = scan.Value();
        if (name == wanted) found = value;
    });
    return found;
}

// GeoJSON before RFC 7946 could name another system; CRS84 and EPSG:4326 name WGS84.
bool IsWgs84(std::string_view crs) {
    if (crs == "null") return true;
    const std::string name = Unescaped(MemberOf(MemberOf(crs, R"("properties")"), R"("name")"));
    return name.ends_with("CRS84") || name.ends_with(":4326");
}

class FeatureBlocks final : public RecordBlocks {
  public:
    FeatureBlocks(std::string file, InputBuffer* input) : file_(std::move(file)), input_(*input) {}

    std::optional<Layout> ReadLayout(const Layout& wanted) override {
        Layout layout = wanted;
        Try([this] { ReadStart(); });
        if (isElsewhere_) layout.wrong = "unsupported 'crs'; GeoJSON must be on WGS84";
        return layout;
    }

    bool Next(RecordBlock* block) override {
        block->number = number_;
        block->text.clear();
        block->error.clear();
        Try([&] {
            if (state_ == State::Features) ReadFeatures(&block->text);
            if (state_ == State::Alone) ReadAlone(&block->text);
            if (state_ == State::Rest && block->text.empty()) ReadRest();
        });
        if (!block->text.empty()) return true;
        if (wrong_.empty()) return false;
        block->error = file_ + ": " + std::exchange(wrong_, {}) + '\n';
        return true;
    }

  private:
    enum class State { Features, Alone, Rest, End };

    template <class Read>
    void Try(Read read) {
        try {
            read();
        } catch (const JsonFault& fault) {
            wrong_ = WordsOf(fault, input_.Offset());
            state_ = State::End;
        }
    }

    // Reads a value at the start of the buffer and removes it. If the buffer ends within the value, reads
    // more input and starts again.
    template <class Read>
    void ReadHeld(Read read) {
        while (true) {
            JsonScan scan(input_.Held());
            try {
                read(scan);
                if (scan.At() < input_.Held().size() || !input_.ReadMore()) return input_.Take(scan.At());
            } catch (const JsonFault& fault) {
                if (!fault.isAtEnd) throw;
                if (!ReadMore()) throw;
            }
        }
    }

    bool ReadMore() {
        if (input_.Held().size() < LONGEST_PIECE) return input_.ReadMore();
        throw JsonFault(
            "more than " + std::to_string(LONGEST_PIECE >> 20) + " MiB in one feature, from byte ", 0, false);
    }

    // Reads up to the first feature of a collection, or a whole feature or geometry.
    void ReadStart() {
        ReadHeld([this](JsonScan& scan) {
            type_.clear();
            if (scan.Peek() != '{') {
                scan.Value();
                state_ = State::Rest;
                return;
            }
            scan.Take('{');
            state_ = ReadMembersToFeatures(scan) ? State::Features : State::Rest;
            const bool isFeature = type_ == "Feature" || IsGeometryType(type_);
            if (state_ == State::Features || !isFeature) return;
            state_ = State::Alone;
            alone_ = input_.Held().substr(0, scan.At());
        });
        root_ = state_;
    }

    // Returns true after the opening bracket of the features.
    bool ReadMembersToFeatures(JsonScan& scan) {
        if (scan.Take('}')) return false;
        do {
            const std::string name = Unescaped(scan.String());
            scan.Expect(':');
            if (name == "features" && scan.Take('[')) return true;
            TakeMember(name, scan.Value());
        } while (scan.Take(','));
        scan.Expect('}');
        return false;
    }

    void TakeMember(const std::string& name, std::string_view value) {
        if (name == "type") type_ = Unescaped(value);
        if (name != "crs") return;
        isElsewhere_ = !IsWgs84(value);
        isLate_ = isElsewhere_ && number_ > 1;
    }

    void ReadAlone(std::string* text) {
        *text = std::exchange(alone_, {});
        state_ = State::Rest;
    }

    // Reads the features of one block; none at the end of the array, whose closing bracket it removes.
    void ReadFeatures(std::string* text) {
        while (input_.Held().size() < BYTES_OF_FEATURES && input_.ReadMore()) {
        }
        while (true) {
            std::optional<JsonFault> fault;
            const std::size_t whole = CountWhole(&fault);
            if (whole > 0) {
                *text = input_.Held().substr(0, whole);
                return input_.Take(whole);
            }
            if (!fault) break;
            if (!fault->isAtEnd || !ReadMore()) throw JsonFault(*fault);
        }
        ReadHeld([](JsonScan& scan) { scan.Expect(']'); });
        state_ = State::Rest;
    }

    // Counts the bytes of the complete features in the buffer, with the commas before them. Without any, and
    // before the end of the array, sets the fault of the first feature.
    std::size_t CountWhole(std::optional<JsonFault>* fault) {
        JsonScan scan(input_.Held());
        std::size_t whole = 0;
        try {
            while (whole < BYTES_OF_FEATURES && scan.Peek() != ']') {
                if (number_ > 1) scan.Expect(',');
                const std::string_view value = scan.Value();
                // A number at the end of the buffer may continue in the input.
                if (!value.ends_with('}') && scan.Peek() == '\0') scan.Expect(',');
                whole = scan.At();
                ++number_;
            }
        } catch (const JsonFault& found) {
            *fault = found;
        }
        return whole;
    }

    void ReadRest() {
        bool isOver = root_ != State::Features;
        while (!isOver) {
            ReadHeld([&](JsonScan& scan) {
                isOver = scan.Take('}');
                if (isOver) return;
                scan.Expect(',');
                const std::string name = Unescaped(scan.String());
                scan.Expect(':');
                TakeMember(name, scan.Value());
            });
        }
        ReadHeld([](JsonScan& scan) { scan.ExpectEnd(); });
        wrong_ = WrongRoot();
        state_ = State::End;
    }

    // The error that affects the whole file; empty for a valid file.
    [[nodiscard]] std::string WrongRoot() const {
        const bool isCollection = root_ == State::Features && type_ == "FeatureCollection";
        if (!isCollection && root_ != State::Alone)
            return "expected a GeoJSON FeatureCollection, Feature or geometry";
        return isLate_
                   ? "unsupported 'crs' after features, which were read as WGS84; GeoJSON must be on WGS84"
                   : "";
    }

    std::string file_;
    InputBuffer& input_;
    State state_ = State::End;
    State root_ = State::End;  // the kind of the root
    std::string type_;         // of the root
    std::string alone_;        // the root, if it is a feature or a geometry
    bool isElsewhere_ = false;
    bool isLate_ = false;
    std::size_t number_ = 1;  // of the next feature
    std::string wrong_;
};

}  // namespace

std::unique_ptr<RecordBlocks> MakeFeatureBlocks(const std::string& file, InputBuffer* input) {
    return std::make_unique<FeatureBlocks>(file, input);
}

}  // namespace tessara::program
