#include "player/player_desk.h"

#include <algorithm>
#include <utility>

#include "basis/result_file.h"
#include "basis/text.h"
#include "player/script.h"

namespace crownlab {

bool PlayerDesk::Act(const std::string& where, const std::function<void()>& act) {
    // What was queued belongs to this handler; a statement inside a modal window has a queue of its own.
    const std::vector<AtYield> outerCurrent = std::exchange(current_, std::exchange(waiting_, {}));
    const int outerYields = std::exchange(yields_, 0);
    const bool outerInside = std::exchange(insideYield_, false);
    const bool good = Dispatch(*this, where, act);
    current_ = outerCurrent;
    yields_ = outerYields;
    insideYield_ = outerInside;
    return good;
}

Button PlayerDesk::Ask(const MessageBox& box) {
    QueuedAnswer answer{.Pressed = box.Buttons.front(), .Digitised = {}};
    if (!answers_.empty()) {
        answer = std::move(answers_.front());
        answers_.pop_front();
        const bool offered = std::find(box.Buttons.begin(), box.Buttons.end(), answer.Pressed) != box.Buttons.end();
        if (!offered) {
            throw ScriptError{"the box " + QuotedText(box.Text) + " has no button " +
                              std::string(ButtonName(answer.Pressed))};
        }
    }
    if (!answer.Digitised.File.empty()) Digitise(answer.Digitised);
    print_("box " + QuotedText(box.Title) + " " + QuotedText(box.Text) + " -> " +
           std::string(ButtonName(answer.Pressed)));
    return answer.Pressed;
}

void PlayerDesk::Digitise(const DigitisedPoints& points) {
    ResultFile file(files_, points.File);
    for (const std::string& point : points.Points) file.Line(point);
    file.Commit();
}

void PlayerDesk::Yield() {
    if (insideYield_) return;
    ++yields_;
    std::vector<AtYield> due;
    for (const AtYield& act : current_) {
        if (act.Number == yields_) due.push_back(act);
    }
    insideYield_ = true;
    for (const AtYield& act : due) act.Act();
    insideYield_ = false;
}

bool PlayerDesk::ActivateWindow(const std::string& processIdOrTitle) {
    return keyTarget_ != nullptr && keyTarget_->ActivateWindow(processIdOrTitle);
}

void PlayerDesk::SendKeys(const std::string& keys) {
    if (keyTarget_ != nullptr) keyTarget_->SendKeys(keys);
}

void PlayerDesk::ShowModal(Form& form) {
    form.Shown = true;
    form.Modal = true;
    modalLoop_(form);
}

void PlayerDesk::ShowFailure(const Failure& failure) {
    ++failures_;
    lastFailure_ = failure;
    print_("failure " + std::string(FailureName(failure.Kind())) + " in " + failure.Handler() + ": " +
           failure.Object());
}

}  // namespace crownlab
