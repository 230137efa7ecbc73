#pragma once

#include <memory>
#include <optional>
#include <tuple>

namespace crownlab {

/// What a widget was last told of its record, so that only what differs is copied again.
template <typename... Fields>
class ShownState {
public:
    /// True if `now` isn't what was shown last; it counts as shown from here on.
    bool Differs(const Fields&... now) {
        if (last_ && *last_ == std::tie(now...)) return false;
        last_.emplace(now...);
        return true;
    }

    /// A person changed the widget: whatever the record holds is copied the next time.
    void Forget() { last_.reset(); }

private:
    std::optional<std::tuple<Fields...>> last_;
};

template <typename... Fields>
using SharedState = std::shared_ptr<ShownState<Fields...>>;

template <typename... Fields>
SharedState<Fields...> MakeState() {
    return std::make_shared<ShownState<Fields...>>();
}

}  // namespace crownlab
