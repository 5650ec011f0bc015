#include "app/program/descriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>

namespace vantrace {

namespace {

/// Whether a call that failed is to be made again: after a signal, and where whoever shares the descriptor
/// has made it one that doesn't wait, as soon as it is ready.
bool isWorthAnotherTry(int descriptor, short readiness) {
    if (errno == EAGAIN) {
        pollfd wanted{descriptor, readiness, 0};
        ::poll(&wanted, 1, -1);
        return true;
    }
    return errno == EINTR;
}

}  // namespace

std::size_t DescriptorSource::read(std::span<char> buffer) {
    while (true) {
        const ssize_t count = ::read(m_descriptor, buffer.data(), buffer.size());
        if (count >= 0) return static_cast<std::size_t>(count);
        if (!isWorthAnotherTry(m_descriptor, POLLIN)) {
            throw std::runtime_error("can't be read: " + std::generic_category().message(errno));
        }
    }
}

DescriptorBuffer::DescriptorBuffer(int descriptor) : m_descriptor(descriptor) {
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
}

bool DescriptorBuffer::writeOut() {
    const char* next = pbase();
    while (next < pptr() && m_error == 0) {
        const ssize_t count = ::write(m_descriptor, next, static_cast<std::size_t>(pptr() - next));
        if (count >= 0) {
            next += count;
        } else if (!isWorthAnotherTry(m_descriptor, POLLOUT)) {
            m_error = errno;
        }
    }
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
    return m_error == 0;
}

DescriptorBuffer::int_type DescriptorBuffer::overflow(int_type character) {
    if (!writeOut()) return traits_type::eof();
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        sputc(traits_type::to_char_type(character));
    }
    return traits_type::not_eof(character);
}

int DescriptorBuffer::sync() {
    return writeOut() ? 0 : -1;
}

void occupyStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        // The lowest free number is given, so that going up fills each gap.
        if (::fcntl(descriptor, F_GETFD) == -1 && errno == EBADF) ::open("/dev/null", O_RDWR);
    }
}

}  // namespace vantrace
