#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "basis/number_text.h"
#include "support/test_desk.h"
#include "surfer/automation.h"
#include "surfer/session.h"

namespace crownlab {

/// An object that answers what a test tells it: properties by name, members as functions.
class ScriptedObject : public AutomationObject {
public:
    using Member = std::function<Value(const Arguments& arguments)>;

    Value Invoke(std::string_view member, const Arguments& arguments) override {
        const std::string name(member);
        if (const auto method = Members.find(name); method != Members.end()) return method->second(arguments);
        if (const auto value = Properties.find(name); value != Properties.end()) return value->second;
        throw Failure(FailureKind::AutomationFailed, "no member " + name);
    }
    void Assign(std::string_view member, const Value& value) override { Properties[std::string(member)] = value; }

    /// A new object that the member gives.
    std::shared_ptr<ScriptedObject> Child(const std::string& member) {
        auto child = std::make_shared<ScriptedObject>();
        Members[member] = [child](const Arguments&) { return ObjectRef(child); };
        return child;
    }

    std::map<std::string, Member> Members;
    std::map<std::string, Value> Properties;
};

/// A program in which one object runs under both classes; a created one takes its place.
class ScriptedServer : public AutomationServer {
public:
    std::shared_ptr<ScriptedObject> Root = std::make_shared<ScriptedObject>();
    /// How a created object comes to be.
    std::function<std::shared_ptr<ScriptedObject>()> Make = [] { return std::make_shared<ScriptedObject>(); };
    std::vector<std::string> Classes{"Surfer.APP", "Surfer.Application"};

    ObjectRef Running(std::string_view className) override { return Knows(className) ? Root : nullptr; }
    ObjectRef Create(std::string_view className) override {
        if (!Knows(className)) return nullptr;
        Root = Make();
        return Root;
    }
    bool ActivateWindow(const std::string&) override { return true; }
    void SendKeys(const std::string&) override {}

private:
    bool Knows(std::string_view className) const {
        return std::find(Classes.begin(), Classes.end(), className) != Classes.end();
    }
};

/// The controls of the main window that the gateway looks at.
struct StartupWindow : Form {
    explicit StartupWindow(Services& services) : Form(services, "frmStartup", "Main") {}

    MenuItem mnuSurf6{*this, "mnuSurf6", "Surfer6", true, false};
    MenuItem mnuSurf8{*this, "mnuSurf8", "Surfer8", true, true};
    CheckBox chkSurferPID{*this, "chkSurferPID", "Use Surfer PID"};
    TextBox txtSurferPID{*this, "txtSurferPID"};
};

/// A session with a scripted program, whose calls are written down.
class Gateway {
public:
    Gateway() {
        Services_.Windows.AddMaker("frmStartup", [this] { return std::make_shared<StartupWindow>(Services_.Ties); });
        Objects.SetTrace([this](const std::string& line) { Trace.push_back(line); });
        State.Objects = &Objects;
        State.SurferVersion = "SurferV8";
    }

    WindowTable& Windows() { return Services_.Windows; }
    Services& App() { return Services_.Ties; }
    StartupWindow& Startup() { return static_cast<StartupWindow&>(*Windows().Load("frmStartup")); }
    /// Checks the menus as the person does; 0 checks neither.
    void ChooseVersion(int version) {
        Startup().mnuSurf6.Checked = version == 6;
        Startup().mnuSurf8.Checked = version == 8;
        if (version != 0) State.SurferVersion = version == 6 ? "SurferV6" : "SurferV8";
    }

    TestServices Services_;
    ScriptedServer Server;
    ActiveObjects Objects{Server};
    Session State;
    std::vector<std::string> Trace;
};

}  // namespace crownlab
