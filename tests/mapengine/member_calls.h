#pragma once

#include <string>
#include <string_view>

#include "mapengine/map_engine.h"

namespace crownlab {

/// The front end of a test: keeps what it is told.
struct TestHost : EngineHost {
    std::string Clipboard;
    int Ended = 0;

    void CallRuns(std::string_view, double) override {}
    void CallEnded() override { ++Ended; }
    void SetClipboardText(const std::string& text) override { Clipboard = text; }
};

/// The engine under both of its classes.
class TestEngine {
public:
    Value Six(std::string_view member, const Arguments& arguments) { return Call("Surfer.APP", member, arguments); }
    Value Eight(std::string_view member, const Arguments& arguments) {
        return Call("Surfer.Application", member, arguments);
    }

private:
    Value Call(std::string_view className, std::string_view member, const Arguments& arguments) {
        return engine_.Running(className)->Invoke(member, arguments);
    }

    TestHost host_;
    MapEngine engine_{host_};
};

}  // namespace crownlab
