// A first pass over the records of a file. It collects what the output needs from the start: the names of all
// members, and whether any record has a height.
#pragma once

#include "files/record_conversion.h"
#include "lines/input_buffer.h"
#include "run/toolkit_names.h"

namespace tessara::program {

// Whether a conversion of such a file needs this pass.
[[nodiscard]] bool NeedsSurvey(const RecordConversion& conversion, Form input);

// Fills in names and heights. The conversion reports errors in records.
void Survey(const RecordConversion& conversion, InputBuffer* input, Layout* layout);

}  // namespace tessara::program
