#pragma once

#include <memory>

#include "mapengine/engine_call.h"

namespace crownlab {

class EngineSession;
class MapEngine;

/// The application object of one session, under one of the two classes.
class ApplicationObject : public AutomationObject {
public:
    ApplicationObject(MapEngine& engine, std::shared_ptr<EngineSession> session, EngineVersion version)
        : engine_(engine), session_(std::move(session)), version_(version) {}

    Value Invoke(std::string_view member, const Arguments& arguments) override;
    void Assign(std::string_view member, const Value& value) override;

private:
    MapEngine& engine_;
    std::shared_ptr<EngineSession> session_;
    EngineVersion version_;
};

}  // namespace crownlab
