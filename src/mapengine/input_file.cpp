#include "mapengine/input_file.h"

#include "basis/failure.h"
#include "mapengine/engine_call.h"

namespace crownlab {

FileText ReadInputFile(const std::string& path) {
    try {
        return ReadFileText(path);
    } catch (const Failure& failure) {
        switch (failure.Kind()) {
            case FailureKind::FileNotFound: FailCall("there is no file " + path);
            case FailureKind::PathNotFound: FailCall("there is no folder for the file " + path);
            case FailureKind::PermissionDenied: FailCall("the file " + path + " can't be read");
            default: throw;
        }
    }
}

}  // namespace crownlab
