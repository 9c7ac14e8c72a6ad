#include "platform/NativeWindow.h"

namespace orvane::platform {

namespace {

const NativeWindowAnswers* AnswersOf(NativeWindow window) {
    return static_cast<const NativeWindowAnswers*>(window.handle);
}

} // namespace

bool ClientRectOf(NativeWindow window, PixelRect& rect) {
    const auto* answers = AnswersOf(window);
    if (!answers || !answers->rectsAvailable) return false;
    rect = answers->client;
    return true;
}

bool WindowRectOf(NativeWindow window, PixelRect& rect) {
    const auto* answers = AnswersOf(window);
    if (!answers || !answers->rectsAvailable) return false;
    rect = answers->window;
    return true;
}

bool IsParentIconic(NativeWindow window) {
    const auto* answers = AnswersOf(window);
    return answers && answers->parentIconic;
}

} // namespace orvane::platform
