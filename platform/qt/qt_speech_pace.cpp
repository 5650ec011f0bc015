#include "platform/qt/qt_speech_pace.h"

#include <algorithm>
#include <cmath>

namespace vantrace {

namespace {

constexpr int slowest = 80;
constexpr int normal = 170;
constexpr int fastest = 449;

}  // namespace

double speechRate(int wordsPerMinute) {
    const int speed = std::clamp(wordsPerMinute, slowest, fastest);
    const int span = speed < normal ? normal - slowest : fastest - normal;
    const double step = std::round(100.0 * (speed - normal) / span);
    // The engine cuts 100 times the rate to a whole number, so that a step must not lie a hair below it.
    return std::clamp((step + std::copysign(1e-3, step)) / 100, -1.0, 1.0);
}

std::chrono::milliseconds longestSpeech(std::string_view text, int wordsPerMinute) {
    using namespace std::chrono_literals;
    // At worst each character is spoken as a word.
    const auto word = std::chrono::milliseconds(1min) / std::clamp(wordsPerMinute, slowest, fastest);
    constexpr std::size_t most = 10'000;
    return 30s + word * static_cast<int>(std::min(text.size(), most));
}

}  // namespace vantrace
