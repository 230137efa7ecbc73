#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "basis/result_file.h"
#include "mapengine/map_engine.h"
#include "player/player_desk.h"
#include "player/script.h"

namespace crownlab {

class Application;

struct PlayerOptions {
    bool Trace = false;      ///< print each call to the mapping program
    bool KeepGoing = false;  ///< go on with the next statement after a failure
    ScriptValues Values;     ///< NAME=VALUE of the command line
};

/// Exit status of a script.
inline constexpr int kStatusGood = 0;
inline constexpr int kStatusExpectation = 1;
inline constexpr int kStatusScript = 2;
inline constexpr int kStatusFailure = 3;

/// Plays a script over an application of its own.
class Player {
public:
    /// `print` takes the output lines, `complain` what goes to standard error.
    Player(PlayerOptions options, LineSink print, LineSink complain);
    ~Player();

    /// Runs all statements; returns the exit status.
    int Run(std::string_view script);

private:
    using Words = std::vector<std::string>;
    struct Target;
    struct StatementEntry;
    struct StopScript {
        int Status;
    };

    int RunAll();
    void RunStatement(const Words& words);
    void RunUntilUnloaded(Form& form);
    static const std::vector<StatementEntry>& Statements();

    void DoProgram(const Words& words);
    void DoFolder(const Words& words);
    void DoStart(const Words& words);
    void DoOpen(const Words& words);
    void DoClose(const Words& words);
    void DoSet(const Words& words);
    void DoPress(const Words& words);
    void DoDouble(const Words& words);
    void DoKey(const Words& words);
    void DoKeyAtYield(const Words& words);
    void DoPressAtYield(const Words& words);
    void DoCloseAtYield(const Words& words);
    void DoMove(const Words& words);
    void DoAnswer(const Words& words);
    void DoDigitise(const Words& words);
    void DoSurfer(const Words& words);
    void DoShow(const Words& words);
    void DoSave(const Words& words);
    void DoExpect(const Words& words);
    void DoExpectFile(const Words& words);
    void DoExpectNoFile(const Words& words);

    void EnsureStarted();
    void WriteSettingsIfMissing();
    Target Find(const std::string& name);
    Target FindForPerson(const std::string& name);
    std::shared_ptr<Form> FindForm(const std::string& name);
    std::string ValueOf(const std::string& name);
    void Act(const std::string& where, const std::function<void()>& act);
    void CloseForm(const std::string& name);
    void Fail(const std::string& line);

    PlayerOptions options_;
    LineSink print_;
    LineSink complain_;
    std::unique_ptr<Script> script_;
    FileTable files_;
    PlayerDesk desk_;
    std::string programFolder_;
    MapEngine engine_;
    ActiveObjects objects_;
    std::unique_ptr<Application> application_;
    std::vector<Form*> modal_;
};

}  // namespace crownlab
