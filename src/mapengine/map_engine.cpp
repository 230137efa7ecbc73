#include "mapengine/map_engine.h"

#include <chrono>
#include <future>
#include <new>

#include "basis/failure.h"
#include "basis/text.h"
#include "mapengine/application_object.h"
#include "mapengine/members.h"

namespace crownlab {
namespace {

/// How often the host hears of a running call.
constexpr std::chrono::milliseconds kTick{50};

[[noreturn]] void FailMember(std::string_view member, const std::string& why) {
    const std::string name(member);
    FailCall(why.compare(0, name.size(), name) == 0 ? why : name + ": " + why);
}

/// The member itself; what it throws is said in the words of a failed call.
Value Run(const MemberEntry& member, EngineCall& call) {
    try {
        return member.Run(call);
    } catch (const Failure& failure) {
        if (failure.Kind() == FailureKind::OutOfMemory) throw;
        FailMember(member.Name, SentenceOf(failure));
    } catch (const std::bad_alloc&) {
        throw Failure(FailureKind::OutOfMemory, std::string(member.Name));
    } catch (const std::exception& error) {
        FailMember(member.Name, error.what());
    }
}

}  // namespace

MapEngine::MapEngine(EngineHost& host) : host_(host), session_(std::make_shared<EngineSession>(host)) {}

MapEngine::~MapEngine() = default;

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
    session_ = std::make_shared<EngineSession>(host_);
    return Running(className);
}

bool MapEngine::ActivateWindow(const std::string&) { return false; }

void MapEngine::SendKeys(const std::string&) {}

Value MapEngine::RunMember(const MemberEntry& member, EngineVersion version, const Arguments& arguments,
                           EngineSession& session) {
    Progress progress;
    EngineCall call{.Member = member.Name,
                    .Version = version,
                    .Given = arguments,
                    .Files = files_,
                    .Done = progress,
                    .Afterwards = {}};
    std::future<Value> result = std::async(std::launch::async, [&] { return Run(member, call); });
    while (result.wait_for(kTick) != std::future_status::ready) host_.CallRuns(member.Name, progress.Share());
    host_.CallEnded();
    Value value = result.get();
    for (const auto& act : call.Afterwards) act(session);
    return value;
}

}  // namespace crownlab
