#include "forms/desk.h"

#include <new>
#include <stdexcept>

namespace crownlab {
namespace {

bool Report(Desk& desk, const std::string& where, Failure failure) {
    if (failure.Handler().empty()) failure.SetHandler(where);
    desk.ShowFailure(failure);
    return false;
}

}  // namespace

std::string_view ButtonName(Button button) {
    switch (button) {
        case Button::Ok: return "OK";
        case Button::Cancel: return "Cancel";
        case Button::Yes: return "Yes";
        case Button::No: return "No";
    }
    return "OK";
}

void Tell(Form& form, const std::string& text, const std::string& title) {
    form.App.Screen->Ask({.Text = text, .Title = title});
}

bool Dispatch(Desk& desk, const std::string& where, const std::function<void()>& act) {
    try {
        act();
        return true;
    } catch (const Failure& failure) {
        return Report(desk, where, failure);
    } catch (const std::bad_alloc&) {
        return Report(desk, where, Failure(FailureKind::OutOfMemory, "memory"));
    } catch (const std::length_error& error) {
        return Report(desk, where, Failure(FailureKind::OutOfMemory, error.what()));
    } catch (const std::exception& error) {
        return Report(desk, where, Failure(FailureKind::InvalidCall, error.what()));
    }
}

}  // namespace crownlab
