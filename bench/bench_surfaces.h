#pragma once

#include <cstdint>
#include <string>

#include "forms/desk.h"
#include "surfer/automation.h"
#include "viewer/surface_grid.h"

namespace crownlab::bench {

/// A folder of its own under the system's temporary one, removed in the end.
class ScratchFolder {
public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();
    std::string Path(const std::string& name) const;
    const std::string& Folder() const { return folder_; }

private:
    std::string folder_;
};

/// Smooth, crown-like heights of `side` by `side` cells at a step of 0.01, edge ring empty.
SurfaceGrid SmoothSurface(int side);

/// Writes the cells that have a surface as a surface file, heights at `decimals`; returns its size in bytes.
std::uint64_t WriteSurfaceText(const SurfaceGrid& grid, const std::string& path, int decimals);

/// A desk that nobody sits at.
class SilentDesk : public Desk {
public:
    Button Ask(const MessageBox& box) override { return box.Buttons.front(); }
    void Yield() override {}
    void Redraw() override {}
    void ShowModal(Form&) override {}
    void FormShown(Form&) override {}
    void FormUnloaded(Form&) override {}
    bool ActivateWindow(const std::string&) override { return false; }
    void SendKeys(const std::string&) override {}
    std::string ClipboardText() override { return {}; }
    void OpenFile(const std::string&) override {}
    void ShowFailure(const Failure&) override {}
};

/// No mapping program runs.
class NoMappingProgram : public AutomationServer {
public:
    ObjectRef Running(std::string_view) override { return nullptr; }
    ObjectRef Create(std::string_view) override { return nullptr; }
    bool ActivateWindow(const std::string&) override { return false; }
    void SendKeys(const std::string&) override {}
};

}  // namespace crownlab::bench
