// A first look at all records of a file, for what has to be known before the first of them is written: the
// names that members have anywhere, and whether there are heights.
#pragma once

#include "files/record_conversion.h"
#include "lines/input_buffer.h"
#include "run/toolkit_names.h"

namespace tessara::program {

// Whether a conversion of such a file takes one.
[[nodiscard]] bool NeedsSurvey(const RecordConversion& conversion, Form input);

// Fills in what the records have. What is wrong with them comes up when they are converted.
void Survey(const RecordConversion& conversion, InputBuffer* input, Layout* layout);

}  // namespace tessara::program
