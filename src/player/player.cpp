#include "player/player.h"

#include <utility>

#include "application/application.h"
#include "basis/failure.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "player/statements.h"

namespace crownlab {

Player::Player(PlayerOptions options, LineSink print, LineSink complain)
    : options_(std::move(options)),
      print_(std::move(print)),
      complain_(std::move(complain)),
      desk_(print_, files_),
      engine_(desk_),
      objects_(engine_) {
    desk_.SetKeyTarget(engine_);
    if (options_.Trace) objects_.SetTrace(print_);
    desk_.SetModalLoop([this](Form& form) { RunUntilUnloaded(form); });
}

Player::~Player() = default;

int Player::Run(std::string_view script) {
    script_ = std::make_unique<Script>(script, options_.Values);
    try {
        return RunAll();
    } catch (const ScriptError& error) {
        complain_("line " + std::to_string(script_->LineNumber()) + ": " + error.Text);
        return kStatusScript;
    } catch (const StopScript& stop) {
        return stop.Status;
    } catch (const ExitProgram&) {
        return desk_.Failures() > 0 ? kStatusFailure : kStatusGood;
    }
}

int Player::RunAll() {
    for (Words words = script_->Next(); !words.empty(); words = script_->Next()) RunStatement(words);
    return desk_.Failures() > 0 ? kStatusFailure : kStatusGood;
}

void Player::RunUntilUnloaded(Form& form) {
    modal_.push_back(&form);
    const std::string name = form.Name;
    while (application_->Windows().Find(name).get() == &form) {
        const Words words = script_->Next();
        if (words.empty()) throw ScriptError{"the script ends while " + name + " waits for an answer"};
        RunStatement(words);
    }
    modal_.pop_back();
}

void Player::RunStatement(const Words& words) {
    for (const StatementEntry& statement : Statements()) {
        if (words.front() != statement.Name) continue;
        const int count = static_cast<int>(words.size()) - 1;
        if (count < statement.Least || (statement.Most >= 0 && count > statement.Most)) {
            throw ScriptError{"usage: " + std::string(statement.Usage)};
        }
        try {
            (this->*statement.Do)(words);
        } catch (const Failure& failure) {
            // Raised by the statement itself, outside of any handler: a path or file of the script is wrong.
            throw ScriptError{failure.what()};
        }
        return;
    }
    throw ScriptError{"unknown statement \"" + words.front() + "\""};
}

void Player::Act(const std::string& where, const std::function<void()>& act) {
    if (desk_.Act(where, act)) {
        if (desk_.Failures() > 0 && !options_.KeepGoing) throw StopScript{kStatusFailure};
        return;
    }
    if (!options_.KeepGoing || EndsProgram(desk_.LastFailure())) throw StopScript{kStatusFailure};
}

void Player::Fail(const std::string& line) {
    print_(line);
    throw StopScript{kStatusExpectation};
}

void Player::WriteSettingsIfMissing() {
    const std::string path = JoinPath(programFolder_, "Crownlab.ini");
    if (!IsFile(path)) WriteWholeFile(files_, path, CurrentFolder() + "\r\nSurferV8\r\n");
}

void Player::EnsureStarted() {
    if (application_) return;
    if (programFolder_.empty()) programFolder_ = CurrentFolder();
    WriteSettingsIfMissing();
    application_ = std::make_unique<Application>(desk_, programFolder_, objects_);
    Act("frmStartup.Form_Load", [this] { application_->Start(); });
}

}  // namespace crownlab
