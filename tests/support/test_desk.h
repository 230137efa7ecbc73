#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "basis/result_file.h"
#include "forms/desk.h"
#include "forms/window_table.h"

namespace crownlab {

/// A desk that answers from a queue and writes down what it was asked.
class TestDesk : public Desk {
public:
    std::vector<MessageBox> Boxes;
    std::deque<Button> Answers;             ///< first button where none is queued
    std::vector<std::string> Failures;      ///< "Kind in handler: object"
    std::vector<std::string> Shown;         ///< names of windows that came to the front
    std::vector<std::string> Unloaded;      ///< names of windows that left
    std::vector<std::string> Opened;        ///< files offered for opening
    std::function<void()> AtYield;          ///< runs inside each yield
    std::function<void(Form&)> WhileModal;  ///< what the person does in a modal window
    int Yields = 0;
    int Redraws = 0;

    Button Ask(const MessageBox& box) override {
        Boxes.push_back(box);
        if (Answers.empty()) return box.Buttons.front();
        const Button answer = Answers.front();
        Answers.pop_front();
        return answer;
    }
    void Yield() override {
        ++Yields;
        if (AtYield) AtYield();
    }
    void Redraw() override { ++Redraws; }
    void ShowModal(Form& form) override {
        form.Shown = true;
        form.Modal = true;
        if (WhileModal) WhileModal(form);
    }
    void FormShown(Form& form) override { Shown.push_back(form.Name); }
    void FormUnloaded(Form& form) override { Unloaded.push_back(form.Name); }
    bool ActivateWindow(const std::string&) override { return false; }
    void SendKeys(const std::string&) override {}
    std::string ClipboardText() override { return {}; }
    void OpenFile(const std::string& path) override { Opened.push_back(path); }
    void ShowFailure(const Failure& failure) override {
        Failures.push_back(std::string(FailureName(failure.Kind())) + " in " + failure.Handler() + ": " +
                           failure.Object());
    }
};

/// Desk, files and window table, tied together as the application does it.
struct TestServices {
    TestDesk Screen;
    FileTable Files;
    Services Ties;
    WindowTable Windows{Ties};

    TestServices() { Ties = {.Windows = &Windows, .Screen = &Screen, .Files = &Files}; }
};

}  // namespace crownlab
