// A sound card that notes what is asked of it.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sound_capture.h"

namespace vantrace {

class FakeSoundCapture final : public SoundCapture {
  public:
    bool closeAll() override { return note("close all"); }
    bool open() override { return note("open"); }
    bool seekToStart() override { return note("seek"); }
    bool setFormat(const CaptureFormat& format) override {
        return note("format " + std::to_string(format.bitsPerSample) + " " +
                    std::to_string(format.samplesPerSecond) + " " + std::to_string(format.channels));
    }
    bool record() override { return note("record"); }
    bool save(std::string_view file) override { return note("save " + std::string(file)); }
    bool stop() override { return note("stop"); }
    bool close() override { return note("close"); }

    std::vector<std::string> commands;
    /// The commands that fail.
    std::set<std::string> failing;

  private:
    bool note(const std::string& command) {
        commands.push_back(command);
        return !failing.contains(command);
    }
};

}  // namespace vantrace
