#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "basis/result_file.h"
#include "mapengine/engine_call.h"
#include "mapengine/engine_session.h"
#include "mapengine/report_keys.h"

namespace crownlab {

struct MemberEntry;

/// The mapping program that Crownlab brings along: it answers the calls that its tools make, with files.
class MapEngine : public AutomationServer {
public:
    explicit MapEngine(EngineHost& host);
    ~MapEngine() override;
    MapEngine(const MapEngine&) = delete;
    MapEngine& operator=(const MapEngine&) = delete;

    ObjectRef Running(std::string_view className) override;
    ObjectRef Create(std::string_view className) override;
    bool ActivateWindow(const std::string& processIdOrTitle) override;
    void SendKeys(const std::string& keys) override;

    /// The session that attaching finds.
    EngineSession& Session() { return *session_; }
    /// `changed` is called, on the thread of the calls, whenever documents were opened, closed or changed and when
    /// another session became the one that attaching finds. It may only take note: a batch of maps calls it often.
    void SetObserver(std::function<void()> changed) { observer_ = std::move(changed); }

    FileTable& Files() { return files_; }

    /// Runs the longer part of a call on a worker thread; meanwhile the host is told how far it is. Failures as AsCall
    /// makes them.
    Value RunAside(std::string_view member, Progress& progress, const std::function<Value()>& work);
    /// Runs a grid member in this way.
    Value RunMember(const MemberEntry& member, EngineVersion version, const Arguments& arguments,
                    EngineSession& session);

private:
    std::shared_ptr<EngineSession> MakeSession();

    EngineHost& host_;
    std::function<void()> observer_;
    FileTable files_;
    std::shared_ptr<EngineSession> session_;
    ReportKeys keys_;
};

}  // namespace crownlab
