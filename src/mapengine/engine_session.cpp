#include "mapengine/engine_session.h"

#include "surfer/automation.h"

namespace crownlab {

void EngineSession::SetClipboardText(const std::string& text) { host_.SetClipboardText(text); }

}  // namespace crownlab
