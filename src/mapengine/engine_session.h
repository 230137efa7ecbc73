#pragma once

#include <string>

#include "mapengine/worksheet.h"

namespace crownlab {

class EngineHost;

/// What one session of the engine has open. Only touched on the thread that makes the calls.
class EngineSession {
public:
    explicit EngineSession(EngineHost& host) : host_(host) {}
    EngineSession(const EngineSession&) = delete;
    EngineSession& operator=(const EngineSession&) = delete;

    /// A report stands open on the screen, until its keys save and close it.
    void OpenReport(Worksheet report) { report_ = std::move(report); }
    /// A worksheet becomes the active document.
    void OpenWorksheet(Worksheet sheet) { worksheet_ = std::move(sheet); }
    void SetClipboardText(const std::string& text);

    const Worksheet& Report() const { return report_; }
    const Worksheet& ActiveWorksheet() const { return worksheet_; }

private:
    EngineHost& host_;
    Worksheet report_;
    Worksheet worksheet_;
};

}  // namespace crownlab
