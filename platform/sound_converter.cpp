#include "platform/sound_converter.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

namespace vantrace {

namespace {

/// The filter's zero crossings to each side, its table's steps between two samples of the device, and the
/// form of its window: what lies beyond the slope is some 80 decibels down, far below 8 bits.
constexpr int crossings = 24;
constexpr int stepsPerSample = 64;
constexpr double kaiserBeta = 8.0;
/// The middle of the slope, as a part of half the lower rate: sound passes up to 0.8 of that half, and none
/// does beyond the half.
constexpr double slopeMiddle = 0.9;

std::size_t sampleBytes(SampleType type) {
    switch (type) {
        case SampleType::UInt8:
            return 1;
        case SampleType::Int16:
            return 2;
        case SampleType::Int32:
        case SampleType::Float:
            return 4;
    }
    return 1;
}

template <class Sample>
Sample readAs(const std::uint8_t* bytes) {
    Sample sample;
    std::memcpy(&sample, bytes, sizeof sample);
    return sample;
}

float sampleValue(const std::uint8_t* bytes, SampleType type) {
    switch (type) {
        case SampleType::UInt8:
            return static_cast<float>(*bytes - 128) / 128.0F;
        case SampleType::Int16:
            return static_cast<float>(readAs<std::int16_t>(bytes)) / 32768.0F;
        case SampleType::Int32:
            return static_cast<float>(readAs<std::int32_t>(bytes)) / 2147483648.0F;
        case SampleType::Float: {
            const float value = readAs<float>(bytes);
            return std::isfinite(value) ? std::clamp(value, -1.0F, 1.0F) : 0.0F;
        }
    }
    return 0.0F;
}

/// The modified Bessel function of order 0, by its power series (Abramowitz and Stegun 9.6.12).
double besselI0(double x) {
    double sum = 1.0;
    double term = 1.0;
    for (int k = 1; term > sum * 1e-12; ++k) {
        term *= (x / (2.0 * k)) * (x / (2.0 * k));
        sum += term;
    }
    return sum;
}

/// The middle of the slope, as a part of half the device's rate.
double cutOff(int fromRate, int toRate) {
    return slopeMiddle * std::min(1.0, static_cast<double>(toRate) / fromRate);
}

int reachOf(int fromRate, int toRate) {
    return static_cast<int>(std::ceil(crossings / cutOff(fromRate, toRate)));
}

std::uint8_t eightBits(double value) {
    return static_cast<std::uint8_t>(std::clamp(std::lround(128.0 + 128.0 * value), 0L, 255L));
}

}  // namespace

SoundConverter::SoundConverter(const SoundFormat& from, int toSamplesPerSecond)
    : m_from(from),
      m_toRate(toSamplesPerSecond),
      m_isSame(from == SoundFormat{toSamplesPerSecond, 1, SampleType::UInt8}),
      m_reach(reachOf(from.samplesPerSecond, toSamplesPerSecond)),
      m_first(-m_reach) {
    m_samples.assign(static_cast<std::size_t>(m_reach), 0.0F);
    if (m_isSame) return;
    const double band = cutOff(from.samplesPerSecond, toSamplesPerSecond);
    const std::size_t steps = static_cast<std::size_t>(m_reach) * stepsPerSample + 2;
    m_filter.reserve(steps);
    for (std::size_t i = 0; i < steps; ++i) {
        const double distance = static_cast<double>(i) / stepsPerSample;
        const double part = std::min(1.0, distance / m_reach);
        const double window = besselI0(kaiserBeta * std::sqrt(1.0 - part * part)) / besselI0(kaiserBeta);
        const double angle = std::numbers::pi * band * distance;
        m_filter.push_back(static_cast<float>(band * window * (i == 0 ? 1.0 : std::sin(angle) / angle)));
    }
}

std::vector<std::uint8_t> SoundConverter::convert(std::span<const std::uint8_t> bytes) {
    if (m_isSame) return {bytes.begin(), bytes.end()};
    takeFrames(bytes);
    std::vector<std::uint8_t> ready = takeReady();
    dropUsed();
    return ready;
}

std::vector<std::uint8_t> SoundConverter::finish() {
    if (m_isSame) return {};
    // As much silence as there is before the sound; what is made of silence alone isn't wanted.
    m_samples.insert(m_samples.end(), static_cast<std::size_t>(m_reach), 0.0F);
    return takeReady();
}

void SoundConverter::takeFrames(std::span<const std::uint8_t> bytes) {
    const std::size_t size = sampleBytes(m_from.type);
    const std::size_t frameSize = size * static_cast<std::size_t>(m_from.channels);
    m_rest.insert(m_rest.end(), bytes.begin(), bytes.end());
    const std::size_t frames = m_rest.size() / frameSize;
    m_samples.reserve(m_samples.size() + frames);
    for (std::size_t frame = 0; frame < frames; ++frame) {
        float sum = 0.0F;
        for (std::size_t at = frame * frameSize; at < (frame + 1) * frameSize; at += size) {
            sum += sampleValue(m_rest.data() + at, m_from.type);
        }
        m_samples.push_back(sum / static_cast<float>(m_from.channels));
    }
    m_rest.erase(m_rest.begin(), m_rest.begin() + static_cast<std::ptrdiff_t>(frames * frameSize));
}

std::vector<std::uint8_t> SoundConverter::takeReady() {
    const std::int64_t end = m_first + static_cast<std::int64_t>(m_samples.size());
    std::vector<std::uint8_t> ready;
    for (;; ++m_next) {
        // In whole numbers first, so that the fraction stays exact however long the sound.
        const std::int64_t product = m_next * m_from.samplesPerSecond;
        const std::int64_t whole = product / m_toRate;
        if (whole + m_reach >= end) return ready;
        const double fraction = static_cast<double>(product % m_toRate) / m_toRate;
        ready.push_back(eightBits(filtered(static_cast<double>(whole - m_first) + fraction)));
    }
}

double SoundConverter::filtered(double positionSamples) const {
    const auto first = static_cast<std::int64_t>(std::ceil(positionSamples)) - m_reach;
    const auto last = static_cast<std::int64_t>(std::floor(positionSamples)) + m_reach;
    double sum = 0.0;
    for (std::int64_t i = std::max<std::int64_t>(first, 0); i <= last; ++i) {
        const double place = std::abs(static_cast<double>(i) - positionSamples) * stepsPerSample;
        const auto step = static_cast<std::size_t>(place);
        const double part = place - static_cast<double>(step);
        const double weight = m_filter[step] + part * (m_filter[step + 1] - m_filter[step]);
        sum += weight * m_samples[static_cast<std::size_t>(i)];
    }
    return sum;
}

void SoundConverter::dropUsed() {
    const std::int64_t needed = m_next * m_from.samplesPerSecond / m_toRate - m_reach;
    const std::int64_t used =
        std::clamp<std::int64_t>(needed - m_first, 0, static_cast<std::int64_t>(m_samples.size()));
    m_samples.erase(m_samples.begin(), m_samples.begin() + used);
    m_first += used;
}

}  // namespace vantrace
