#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "mapengine/plot_document.h"
#include "mapengine/worksheet.h"

namespace crownlab {

class EngineHost;

/// A worksheet that stands open.
struct SheetDocument {
    std::string Name;  ///< its file's, "Sheet1" and so on while it has none
    Worksheet Sheet;
    int Handle = 0;  ///< what version 6 calls it by; above 0
    bool IsOpen = true;
};

using PlotRef = std::shared_ptr<PlotDocument>;
using SheetRef = std::shared_ptr<SheetDocument>;
using DocumentRef = std::variant<PlotRef, SheetRef>;

const std::string& NameOf(const DocumentRef& document);
/// The name in a path, by which worksheets are known.
std::string FileNameOf(const std::string& path);

/// What one session of the engine has open. Only touched on the thread that makes the calls.
class EngineSession {
public:
    /// `changed` is called after each change of what stands open.
    EngineSession(EngineHost& host, std::function<void()> changed) : host_(host), changed_(std::move(changed)) {}
    EngineSession(const EngineSession&) = delete;
    EngineSession& operator=(const EngineSession&) = delete;

    /// A report stands open on the screen, until its keys save and close it. Of several the last one has the keys.
    void OpenReport(Worksheet report) { reports_.push_back(std::move(report)); }
    bool HasReport() const { return !reports_.empty(); }
    void CloseReport();
    /// A worksheet becomes the active document.
    SheetRef OpenWorksheet(Worksheet sheet);
    /// An empty plot document, "Plot1" for the first of the session, becomes the active one.
    PlotRef AddPlot();
    void Close(const DocumentRef& document);
    /// Closes everything; one empty plot document "Plot1" is left, as at the engine's start.
    void StartAnew();
    void SetClipboardText(const std::string& text);
    /// To be called after each change of a plot document.
    void Touch(PlotDocument& plot);

    /// In the order in which they were opened: the last one is the active one.
    const std::vector<DocumentRef>& Documents() const { return documents_; }
    /// The plot documents among them, for the front end to draw.
    std::vector<std::shared_ptr<const PlotDocument>> Plots() const;
    /// The last plot document, nullptr if there is none.
    PlotRef ActivePlot() const;
    SheetRef SheetOfHandle(int handle) const;

    /// The report that has the keys, the active document where it is a worksheet; empty ones if there is none.
    const Worksheet& Report() const;
    const Worksheet& ActiveWorksheet() const;

    /// Whether the program shows itself; nothing else depends on it.
    bool Visible = false;

private:
    EngineHost& host_;
    std::function<void()> changed_;
    std::vector<Worksheet> reports_;
    std::vector<DocumentRef> documents_;
    int plotsMade_ = 0;
    int sheetsNamed_ = 0;
    int handles_ = 0;
};

}  // namespace crownlab
