// How fast a text is spoken.
#pragma once

#include <chrono>
#include <string_view>

namespace vantrace {

/// The rate, -1 to 1, at which the engine speaks that many words per minute, to the nearest of its 201 steps.
/// Speeds out of its range (80 to 449) count as the end of the range.
///
/// Source: speech-dispatcher's settings for its eSpeak NG module (modules/espeak-ng.conf, version 0.11):
/// EspeakMinRate 80 at -100, EspeakNormalRate 170 at 0, EspeakMaxRate 449 at 100, straight lines between.
double speechRate(int wordsPerMinute);

/// When a text must be over, however slowly its figures and abbreviations are spelt out and whoever else
/// speaks first.
std::chrono::milliseconds longestSpeech(std::string_view text, int wordsPerMinute);

}  // namespace vantrace
