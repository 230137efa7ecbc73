#pragma once

#include <memory>
#include <string>
#include <vector>

#include "mapengine/engine_session.h"
#include "mapengine/grid_file.h"
#include "mapengine/map_engine.h"
#include "support/temp_folder.h"

namespace crownlab {

/// A front end that shows nothing.
class SilentHost : public EngineHost {
public:
    void CallRuns(std::string_view, double) override {}
    void CallEnded() override {}
    void SetClipboardText(const std::string&) override {}
};

/// The engine in a folder of its own, called as the tools call it.
class EngineForms {
public:
    Value Six(std::string_view member, const Arguments& arguments) {
        return engine_.Running("Surfer.APP")->Invoke(member, arguments);
    }
    Value Eight(std::string_view member, const Arguments& arguments) {
        return engine_.Running("Surfer.Application")->Invoke(member, arguments);
    }
    /// A member of the active document.
    void ActiveDocument(std::string_view member) {
        std::get<ObjectRef>(Eight("ActiveDocument", {}))->Invoke(member, {});
    }
    std::string Path(const std::string& name) const { return folder_ / name; }
    /// Writes a grid file and returns its path.
    std::string Put(const std::string& name, const Grid& grid) {
        WriteGrid(files_, Path(name), grid, GridFormat::Binary64);
        return Path(name);
    }
    std::string PutText(const std::string& name, const std::string& text) const {
        PutFile(Path(name), text);
        return Path(name);
    }
    Grid Get(const std::string& name) const { return ReadGrid(Path(name)); }
    std::string Cell(int row, int column) { return engine_.Session().ActiveWorksheet().Cell(row, column); }
    const Worksheet& Sheet() { return engine_.Session().ActiveWorksheet(); }
    const Worksheet& Report() { return engine_.Session().Report(); }
    std::size_t EntryCount() const { return folder_.EntryCount(); }

private:
    TempFolder folder_;
    FileTable files_;
    SilentHost host_;
    MapEngine engine_{host_};
};

/// An absent position.
inline Argument None() { return Argument(Absent{}); }

}  // namespace crownlab
