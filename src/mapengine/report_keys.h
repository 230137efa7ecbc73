#pragma once

#include <string>

namespace crownlab {

class EngineSession;
class FileTable;

/// What key strokes do to the engine's report window:
///
///   "%fs" path "~"   saves the report; if the file exists, asks about overwriting it first
///   "y"              answers that question with yes; anything else is a no
///   "%fc"            closes the report
///   "%{TAB}"         another program's window comes to the front
///
/// Nobody hears whether keys arrived: without a report, or with a path that can't be written, nothing happens.
class ReportKeys {
public:
    /// The engine's window comes to the front or goes from there.
    void SetInFront(bool inFront);
    void Send(const std::string& keys, EngineSession& session, FileTable& files);

private:
    void Save(const std::string& path, EngineSession& session, FileTable& files);

    bool inFront_ = false;
    /// The file about which the engine asks, empty if it doesn't.
    std::string question_;
};

}  // namespace crownlab
