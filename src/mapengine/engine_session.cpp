#include "mapengine/engine_session.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "surfer/automation.h"

namespace crownlab {
namespace {

const Worksheet kNoSheet;

void MarkClosed(const DocumentRef& document) {
    std::visit([](const auto& open) { open->IsOpen = false; }, document);
}

}  // namespace

const std::string& NameOf(const DocumentRef& document) {
    return std::visit([](const auto& open) -> const std::string& { return open->Name; }, document);
}

std::string FileNameOf(const std::string& path) { return std::filesystem::path(path).filename().string(); }

void EngineSession::CloseReport() {
    if (!reports_.empty()) reports_.pop_back();
}

SheetRef EngineSession::OpenWorksheet(Worksheet sheet) {
    auto document = std::make_shared<SheetDocument>();
    document->Name = sheet.Path.empty() ? "Sheet" + std::to_string(++sheetsNamed_) : FileNameOf(sheet.Path);
    document->Sheet = std::move(sheet);
    document->Handle = ++handles_;
    documents_.emplace_back(document);
    changed_();
    return document;
}

PlotRef EngineSession::AddPlot() {
    auto document = std::make_shared<PlotDocument>();
    document->Name = "Plot" + std::to_string(++plotsMade_);
    documents_.emplace_back(document);
    changed_();
    return document;
}

void EngineSession::Close(const DocumentRef& document) {
    MarkClosed(document);
    std::erase(documents_, document);
    changed_();
}

void EngineSession::StartAnew() {
    for (const DocumentRef& document : documents_) MarkClosed(document);
    documents_.clear();
    reports_.clear();
    plotsMade_ = 0;
    sheetsNamed_ = 0;
    AddPlot();
}

void EngineSession::SetClipboardText(const std::string& text) { host_.SetClipboardText(text); }

void EngineSession::Touch(PlotDocument& plot) {
    ++plot.Changes;
    changed_();
}

std::vector<std::shared_ptr<const PlotDocument>> EngineSession::Plots() const {
    std::vector<std::shared_ptr<const PlotDocument>> plots;
    for (const DocumentRef& document : documents_) {
        if (const PlotRef* const plot = std::get_if<PlotRef>(&document)) plots.push_back(*plot);
    }
    return plots;
}

PlotRef EngineSession::ActivePlot() const {
    PlotRef last;
    for (const DocumentRef& document : documents_) {
        if (const PlotRef* const plot = std::get_if<PlotRef>(&document)) last = *plot;
    }
    return last;
}

SheetRef EngineSession::SheetOfHandle(int handle) const {
    for (const DocumentRef& document : documents_) {
        const SheetRef* const sheet = std::get_if<SheetRef>(&document);
        if (sheet != nullptr && (*sheet)->Handle == handle) return *sheet;
    }
    return nullptr;
}

const Worksheet& EngineSession::Report() const { return reports_.empty() ? kNoSheet : reports_.back(); }

const Worksheet& EngineSession::ActiveWorksheet() const {
    if (documents_.empty()) return kNoSheet;
    const SheetRef* const sheet = std::get_if<SheetRef>(&documents_.back());
    return sheet == nullptr ? kNoSheet : (*sheet)->Sheet;
}

}  // namespace crownlab
