#include "files/record_blocks.h"

#include "files/feature_blocks.h"
#include "files/line_blocks.h"

namespace tessara::program {

std::unique_ptr<RecordBlocks> MakeRecordBlocks(Form form, const std::string& file, InputBuffer* input) {
    return form == Form::GEOJSON ? MakeFeatureBlocks(file, input) : MakeLineBlocks(form, file, input);
}

}  // namespace tessara::program
