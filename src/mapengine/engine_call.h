#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "mapengine/progress.h"
#include "surfer/automation.h"

namespace crownlab {

class EngineSession;
class Failure;
class FileTable;

/// The two classes under which the engine is reached, "Surfer.APP" and "Surfer.Application".
enum class EngineVersion { Six, Eight };

/// Names of a member's arguments in the order of their positions. An empty name is a position that means nothing
/// here: whatever stands there is disregarded.
using Positions = std::vector<std::string_view>;

/// The arguments of one call, whether they were given by position or by name. All failures are AutomationFailed
/// with a sentence that names the argument.
class CallArguments {
public:
    /// Fails for a name that isn't in `positions` or in `onlyNamed`, an argument given twice, too many positions.
    CallArguments(std::string_view member, const Positions& positions, const Arguments& given,
                  const Positions& onlyNamed = {});

    bool Has(std::string_view name) const { return Find(name) != nullptr; }
    /// True if it is given as a number, or as a text that is one.
    bool IsNumber(std::string_view name) const;
    /// Text that isn't empty.
    std::string Text(std::string_view name) const;
    std::optional<std::string> OptionalText(std::string_view name) const;
    /// A text, or a number's general text.
    std::string NameOrNumber(std::string_view name) const;
    /// A finite number; a number sent as text is one.
    double Number(std::string_view name) const;
    double Number(std::string_view name, double otherwise) const;
    std::optional<double> OptionalNumber(std::string_view name) const;
    /// A whole number of 32 bits.
    int Whole(std::string_view name) const;
    int Whole(std::string_view name, int otherwise) const;
    /// True, False or a number, 0 being False.
    bool Flag(std::string_view name, bool otherwise) const;
    const NumberMatrix& Matrix(std::string_view name) const;
    NumberArray Array(std::string_view name) const;

    [[noreturn]] void Fail(std::string_view name, const std::string& why) const;

private:
    struct Named {
        std::string_view Name;
        const Value* Content;
    };
    void Add(std::string_view name, const Value& content);
    const Value* Find(std::string_view name) const;
    const Value& Require(std::string_view name) const;

    std::string_view member_;
    std::vector<Named> values_;
};

/// One call of a grid member. It runs on a worker thread: what it has to do to the session's documents it leaves
/// behind in `Afterwards`, which the calling thread runs when the member has returned.
struct EngineCall {
    std::string_view Member;
    EngineVersion Version = EngineVersion::Eight;
    const Arguments& Given;
    FileTable& Files;
    Progress& Done;
    std::vector<std::function<void(EngineSession&)>> Afterwards;

    bool IsSix() const { return Version == EngineVersion::Six; }
};

/// A grid member: reads its arguments and files, writes its output whole or not at all.
using GridMember = Value (*)(EngineCall& call);

/// AutomationFailed with that sentence.
[[noreturn]] void FailCall(const std::string& sentence);

/// What a failure says, as a sentence for a failed call: that of a file is told in words that name it.
std::string SentenceOf(const Failure& failure);

/// Runs `act`. What it throws becomes AutomationFailed with the member's name in front, save for a lack of memory,
/// which becomes OutOfMemory.
Value AsCall(std::string_view member, const std::function<Value()>& act);

}  // namespace crownlab
