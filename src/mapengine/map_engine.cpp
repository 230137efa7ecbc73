#include "mapengine/map_engine.h"

#include <chrono>
#include <future>

#ifdef _WIN32
#include <process.h>
#define getpid _getpid
#else
#include <unistd.h>
#endif

#include "basis/text.h"
#include "mapengine/application_object.h"
#include "mapengine/members.h"

namespace crownlab {
namespace {

/// How often the host hears of a running call.
constexpr std::chrono::milliseconds kTick{50};

}  // namespace

MapEngine::MapEngine(EngineHost& host) : host_(host), session_(MakeSession()) { session_->StartAnew(); }

MapEngine::~MapEngine() = default;

std::shared_ptr<EngineSession> MapEngine::MakeSession() {
    return std::make_shared<EngineSession>(host_, [this] {
        if (observer_) observer_();
    });
}

ObjectRef MapEngine::Running(std::string_view className) {
    if (EqualNoCase(className, "Surfer.APP")) {
        return std::make_shared<ApplicationObject>(*this, session_, EngineVersion::Six);
    }
    if (EqualNoCase(className, "Surfer.Application")) {
        return std::make_shared<ApplicationObject>(*this, session_, EngineVersion::Eight);
    }
    return nullptr;
}

ObjectRef MapEngine::Create(std::string_view className) {
    if (!Running(className)) return nullptr;
    session_ = MakeSession();
    keys_ = {};
    if (observer_) observer_();
    return Running(className);
}

bool MapEngine::ActivateWindow(const std::string& processIdOrTitle) {
    const std::string title =
        "Surfer - " + (session_->Documents().empty() ? std::string() : NameOf(session_->Documents().back()));
    const bool named = !processIdOrTitle.empty() && title.compare(0, processIdOrTitle.size(), processIdOrTitle) == 0;
    if (!named && processIdOrTitle != std::to_string(getpid())) return false;
    keys_.SetInFront(true);
    return true;
}

void MapEngine::SendKeys(const std::string& keys) { keys_.Send(keys, *session_, files_); }

Value MapEngine::RunAside(std::string_view member, Progress& progress, const std::function<Value()>& work) {
    std::future<Value> result = std::async(std::launch::async, [&] { return AsCall(member, work); });
    while (result.wait_for(kTick) != std::future_status::ready) host_.CallRuns(member, progress.Share());
    host_.CallEnded();
    return result.get();
}

Value MapEngine::RunMember(const MemberEntry& member, EngineVersion version, const Arguments& arguments,
                           EngineSession& session) {
    Progress progress;
    EngineCall call{.Member = member.Name,
                    .Version = version,
                    .Given = arguments,
                    .Files = files_,
                    .Done = progress,
                    .Afterwards = {}};
    Value value = RunAside(member.Name, progress, [&] { return member.Run(call); });
    for (const auto& act : call.Afterwards) act(session);
    return value;
}

}  // namespace crownlab
