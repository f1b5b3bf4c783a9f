#include <cctype>
#include <string>

#include "conversion/quote.h"
#include "conversion/statuses.h"
#include "records.h"
#include "tessara/ckoord.h"
#include "tessara/kernel/constants.h"
#include "typed.h"
#include "typed/text_writer.h"

struct TessaraReader {
    tessara::toolkit::TypedReader reader;
};

namespace tessara::postgresql {
namespace {

std::string Sentence(std::string clause) {
    if (clause.empty()) return clause;
    clause[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(clause[0])));
    return clause + '.';
}

}  // namespace

Thrown NoPlace(KoordStatus status) {
    return {TESSARA_WRONG_TEXT, "this is no position", Sentence(toolkit::StatusReason(status))};
}

Thrown WrongText(const char* type, std::string_view text, const toolkit::Fault& fault) {
    Thrown thrown{TESSARA_WRONG_TEXT, "invalid " + std::string(type) + ": " + toolkit::Quote(text),
                  Sentence(fault.reason)};
    if (!fault.piece.IsEmpty())
        thrown.hint = "The piece " +
                      toolkit::Quote(text.substr(fault.piece.begin, fault.piece.end - fault.piece.begin)) +
                      " is wrong.";
    return thrown;
}

TessaraPosition ReadTyped(const toolkit::TypedReader& reader, const char* text) {
    const toolkit::TypedResult result = reader.Read(text);
    if (!result.IsRead()) throw WrongText("position", text, result.fault);
    const tagKOORD& read = result.readings[0].record;
    const RecordForm form(static_cast<std::int32_t>(read.datum), static_cast<std::int32_t>(read.type));
    const tagKOORD record = form.Canonical(read);
    double degrees[2];
    const KoordStatus status = ToDegrees(record, degrees);
    if (status != KOORD_OK) throw NoPlace(status);
    return PositionOf(record);
}

extern "C" {

TessaraReader* Tessara_NewReader(const char* reference, TessaraError* error) noexcept {
    TessaraReader* made = nullptr;
    Guarded(error, [&] {
        toolkit::Wanted wanted;
        if (reference != nullptr) wanted = {ReferenceOf(reference), toolkit::Order::NorthFirst};
        made = new TessaraReader{toolkit::TypedReader(wanted)};
        return true;
    });
    return made;
}

void Tessara_FreeReader(TessaraReader* reader) noexcept {
    delete reader;
}

bool Tessara_Parse(const TessaraReader* reader, const char* text, TessaraPosition* position,
                   TessaraError* error) noexcept {
    return Guarded(error, [&] {
        *position = ReadTyped(reader->reader, text);
        return true;
    });
}

bool Tessara_Check(const TessaraReader* reader, const char* text, TessaraFinding* finding,
                   TessaraError* error) noexcept {
    return Guarded(error, [&] {
        const toolkit::TypedResult result = reader->reader.Read(text);
        *finding = TessaraFinding{};
        finding->isPosition = result.IsRead();
        CopyText(result.fault.code, finding->code);
        CopyText(result.fault.reason, finding->reason);
        finding->begin = result.fault.piece.begin;
        finding->end = result.fault.piece.end;
        return true;
    });
}

bool Tessara_Format(const TessaraPosition* position, char text[TESSARA_TEXT_SIZE],
                    TessaraError* error) noexcept {
    return Guarded(error, [&] {
        const CKoord record(RecordOf(*position));
        toolkit::TextStyle style;
        style.reference = toolkit::ReferenceDigits{};
        const toolkit::TextWriter writer({.datum = static_cast<std::int32_t>(record.datum),
                                          .system = static_cast<std::int32_t>(record.type)},
                                         style);
        std::string joined;
        for (const std::string& part : writer.Write(record, record))
            joined += (joined.empty() ? "" : ", ") + part;
        if (joined.empty()) throw NoPlace(KOORD_ERR_OUTSIDE);
        CopyText(joined, *reinterpret_cast<char(*)[TESSARA_TEXT_SIZE]>(text));
        return true;
    });
}

}  // extern "C"

}  // namespace tessara::postgresql
