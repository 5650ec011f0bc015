// Reading and writing by the descriptors of the process.
#pragma once

#include <array>
#include <cstddef>
#include <streambuf>

#include "app/program/console.h"

namespace vantrace {

/// Reads a descriptor that stays open.
class DescriptorSource final : public ByteSource {
  public:
    explicit DescriptorSource(int descriptor) : m_descriptor(descriptor) {}
    std::size_t read(std::span<char> buffer) override;

  private:
    int m_descriptor;
};

/// A large buffer in front of a descriptor that stays open. After a failure nothing is written any more.
class DescriptorBuffer final : public std::streambuf {
  public:
    explicit DescriptorBuffer(int descriptor);

    /// The errno of the failure; 0 while there was none.
    int error() const { return m_error; }

  protected:
    int_type overflow(int_type character) override;
    int sync() override;

  private:
    bool writeOut();

    int m_descriptor;
    int m_error = 0;
    std::array<char, 65536> m_buffer{};
};

/// Opens what is closed of standard input, output and error on the null device: a file opened later would
/// otherwise get the number of one of them, and with it what is meant for that.
void occupyStandardDescriptors();

}  // namespace vantrace
