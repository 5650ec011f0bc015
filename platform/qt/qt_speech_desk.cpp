#include "platform/qt/qt_speech_desk.h"

#include <algorithm>
#include <utility>

namespace vantrace {

namespace {

/// The engine's daemon is spoken to in lines, so that none may be in a text.
std::string withoutControls(std::string_view text) {
    std::string result(text);
    std::replace_if(
        result.begin(), result.end(),
        [](char sign) { return (sign >= '\0' && sign < ' ') || sign == '\x7f'; }, ' ');
    return result;
}

bool hasVoice(const SpeechFacts& facts, int number) {
    return number >= 1 && static_cast<std::size_t>(number) <= facts.voices.size();
}

}  // namespace

void SpeechDesk::put(std::string_view text) {
    std::string plain = withoutControls(text);
    if (plain.find_first_not_of(' ') == std::string::npos) return;
    const std::lock_guard lock(m_mutex);
    if (m_texts.size() >= waitingTexts) m_texts.pop_front();
    m_texts.push_back(std::move(plain));
}

void SpeechDesk::setSpeed(int wordsPerMinute) {
    const std::lock_guard lock(m_mutex);
    m_wordsPerMinute = wordsPerMinute;
}

void SpeechDesk::setVoice(int number) {
    const std::lock_guard lock(m_mutex);
    if (m_facts.voices.empty()) m_wishedVoice = number;
    if (hasVoice(m_facts, number)) m_facts.voice = m_wishedVoice = number;
}

SpeechFacts SpeechDesk::facts() {
    std::unique_lock lock(m_mutex);
    waitForAnswer(lock);
    return m_facts;
}

void SpeechDesk::tellFound(SpeechFacts facts) {
    {
        const std::lock_guard lock(m_mutex);
        m_facts = std::move(facts);
        m_facts.voice = hasVoice(m_facts, m_wishedVoice) ? m_wishedVoice : 1;
        m_isAnswered = true;
    }
    m_answered.notify_all();
}

void SpeechDesk::tellAbsent() {
    {
        const std::lock_guard lock(m_mutex);
        m_facts = {};
        m_texts.clear();
        m_isAnswered = true;
    }
    m_answered.notify_all();
}

std::optional<std::string> SpeechDesk::take() {
    const std::lock_guard lock(m_mutex);
    if (m_texts.empty()) return std::nullopt;
    std::string text = std::move(m_texts.front());
    m_texts.pop_front();
    return text;
}

void SpeechDesk::putBack(std::string text) {
    const std::lock_guard lock(m_mutex);
    m_texts.push_front(std::move(text));
}

int SpeechDesk::speed() const {
    const std::lock_guard lock(m_mutex);
    return m_wordsPerMinute;
}

int SpeechDesk::voice() const {
    const std::lock_guard lock(m_mutex);
    return m_facts.voice;
}

void SpeechDesk::waitForAnswer(std::unique_lock<std::mutex>& lock) {
    if (m_isAnswered || m_hasWaited) return;
    m_hasWaited = true;
    m_answered.wait_for(lock, m_patience, [this] { return m_isAnswered; });
}

}  // namespace vantrace
