#include "mapengine/input_file.h"

#include "basis/failure.h"
#include "mapengine/engine_call.h"

namespace crownlab {

FileText ReadInputFile(const std::string& path) {
    try {
        return ReadFileText(path);
    } catch (const Failure& failure) {
        if (failure.Kind() == FailureKind::OutOfMemory) throw;
        FailCall(SentenceOf(failure));
    }
}

}  // namespace crownlab
