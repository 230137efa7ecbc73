#include "mapengine/report_keys.h"

#include <string_view>
#include <utility>

#include "basis/failure.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "basis/text.h"
#include "mapengine/engine_session.h"

namespace crownlab {
namespace {

constexpr std::string_view kSave = "%fs";
constexpr std::string_view kConfirm = "~";

}  // namespace

void ReportKeys::SetInFront(bool inFront) { inFront_ = inFront; }

void ReportKeys::Save(const std::string& path, EngineSession& session, FileTable& files) {
    try {
        WriteWholeFile(files, path, WorksheetText(session.Report()));
    } catch (const Failure& failure) {
        // A person would see the program's own box here; the sender of keys can't.
        if (failure.Kind() == FailureKind::OutOfMemory) throw;
    }
}

void ReportKeys::Send(const std::string& keys, EngineSession& session, FileTable& files) {
    if (EqualNoCase(keys, "%{TAB}")) {
        SetInFront(false);
        return;
    }
    if (!inFront_ || !session.HasReport()) return;
    const std::string asked = std::exchange(question_, {});
    if (!asked.empty()) {
        if (EqualNoCase(keys, "y")) Save(asked, session, files);
        return;
    }
    if (EqualNoCase(keys, "%fc")) {
        session.CloseReport();
        return;
    }
    const std::string_view text = keys;
    if (text.size() <= kSave.size() + kConfirm.size() || !EqualNoCase(text.substr(0, kSave.size()), kSave) ||
        !text.ends_with(kConfirm)) {
        return;
    }
    const std::string path(text.substr(kSave.size(), text.size() - kSave.size() - kConfirm.size()));
    if (IsFile(path)) {
        question_ = path;
    } else {
        Save(path, session, files);
    }
}

}  // namespace crownlab
