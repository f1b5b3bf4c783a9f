// tessara check
#include <iostream>
#include <memory>

#include "commands/arguments.h"
#include "commands/commands.h"
#include "commands/typed_position.h"
#include "conversion/names.h"
#include "conversion/numbers.h"
#include "files/json_object.h"
#include "files/typed_words.h"
#include "tessara/kernel/systems.h"

namespace tessara::program {
namespace {

constexpr const char* CHECK_FOOTER =
    R"(Writes `valid` and the position that was read: the system, its fields with the typed digits (an underscore
stands for each digit of a reference that was not typed), the resolution, and latitude and longitude on the
datum. For any other text, writes `not valid`, the reason and the piece of the text in question; the exit
status is 1.

A position is one text, or a north and an east text. Without --system the command recognises degrees, UTM, UPS,
military references, GEOREF, and squares of the British and Irish grids.

Examples:
  tessara check 32UPU9160234791
  tessara check "48 8 15 N, 11 34 32 E"
  tessara check --system UTM 'N 5334791' '32 691602'
  tessara check --system GK@GER 5333259.5 4468409.7)";

struct CheckOptions {
    std::string system = "auto";
    std::vector<std::string> words;
    Order order = Order::Unknown;
    bool json = false;
};

// In degrees or metres, depending on the system.
std::string ResolutionText(const Reading& reading) {
    const bool areDegrees = System_Unit(reading.reference.system) == Unit::Degree;
    const auto text = [](double resolution) { return FormatPlain(resolution, DEGREE_DECIMALS); };
    const std::string unit = areDegrees ? " degrees" : " m";
    return text(reading.northResolution) + unit + " north, " + text(reading.eastResolution) + unit + " east";
}

void WriteReading(const Reading& reading) {
    std::cout << "  " << reading.reference.Name() << "  " << PictureOf(reading) << "\n  digits  "
              << ResolutionText(reading) << '\n';
    GeodezPayload degrees{};
    if (!DegreesOf(reading.record, &degrees)) return;
    std::cout << "  degrees  " << FormatNumber(degrees.latitude, DEGREE_DECIMALS) << ' '
              << FormatNumber(degrees.longitude, DEGREE_DECIMALS) << '\n';
}

void AddReading(const Reading& reading, std::string* json) {
    JsonObject object(json);
    object.Text("system", SystemName(reading.reference.system));
    object.Text("datum", DatumName(reading.reference.datum));
    object.Text("picture", PictureOf(reading));
    object.Number("northResolution", reading.northResolution);
    object.Number("eastResolution", reading.eastResolution);
    GeodezPayload degrees{};
    if (DegreesOf(reading.record, &degrees)) {
        object.Number("latitude", degrees.latitude);
        object.Number("longitude", degrees.longitude);
    }
    object.End();
}

void AddFault(const Fault& fault, std::string* json) {
    JsonObject object(json);
    object.Text("code", fault.code);
    object.Text("reason", fault.reason);
    *object.Name("text") += std::to_string(fault.piece.text);
    *object.Name("begin") += std::to_string(fault.piece.begin);
    *object.Name("end") += std::to_string(fault.piece.end);
    object.End();
}

void WriteJson(const TypedResult& result) {
    std::string json;
    JsonObject object(&json);
    *object.Name("valid") += result.IsRead() ? "true" : "false";
    *object.Name("readings") += '[';
    for (const Reading& reading : result.readings) {
        if (&reading != result.readings.data()) json += ',';
        AddReading(reading, &json);
    }
    json += ']';
    if (!result.IsRead()) {
        object.Name("fault");
        AddFault(result.fault, &json);
    }
    object.End();
    std::cout << json << '\n';
}

ExitCode Check(const CheckOptions& options) {
    const Reference reference = *TypedReferenceByName(options.system, DATUM_WGS84);
    const TypedResult result = ReadWords(TypedReader({reference, options.order}), options.words);
    if (options.json) {
        WriteJson(result);
    } else if (result.IsRead()) {
        std::cout << "valid\n";
        WriteReading(result.readings.front());
    } else {
        std::cout << "not valid: " << ExplainFault(result, options.words);
    }
    return result.IsRead() ? EXIT_DONE : EXIT_INCOMPLETE;
}

}  // namespace

void AddCheck(CLI::App& program, Action& action) {
    Command command(program, "check", "Checks whether a text is a valid position", CHECK_FOOTER);
    const auto options = std::make_shared<CheckOptions>();
    command.Add("--system", options->system, "System of the text; its datum is by default WGS84")
        .Type("SYSTEM[:PARAMETERS][@DATUM]|auto[@DATUM]")
        .ShowDefault()
        .CheckedBy(WrongTypedReference);
    AddOrder(command, options->order);
    command.AddFlag("--json", options->json, "Write a JSON object, which has a code for the error");
    command.Add("TEXT", options->words, "One text, or a north and an east text").Type("").Required();
    command.OnCall(action, [options] { return [options] { return Check(*options); }; });
}

}  // namespace tessara::program
