// Lines of text as coverage, painted by Qt with the machine's own faces.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>

#include "platform/text_painter.h"

namespace vantrace {

class FontPlatform;

/// The same bits for the same question on one machine: sizes are whole pixels, nothing is hinted, and no
/// desktop's taste is asked. Works without a screen: where the process has no window system it brings up one
/// that shows nothing.
class QtTextPainter final : public TextPainter {
  public:
    QtTextPainter();
    ~QtTextPainter() override;
    QtTextPainter(const QtTextPainter&) = delete;
    QtTextPainter& operator=(const QtTextPainter&) = delete;

    const TextCoverage& coverageOf(const Font& font, std::string_view text,
                                   double devicePixelsPerPixel) override;

  private:
    using Key = std::tuple<std::string, double, bool, std::string>;
    using Known = std::map<Key, TextCoverage>;

    const TextCoverage& keep(Known::node_type known);

    std::unique_ptr<FontPlatform> m_platform;
    /// Names of satellites and places come again with each frame, lines that tell the time never. So what was
    /// asked for lately is kept in one, and what was asked for before that in the other, which goes whole.
    Known m_recent;
    Known m_older;
    std::size_t m_recentBytes = 0;
};

}  // namespace vantrace
