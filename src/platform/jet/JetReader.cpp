#include "platform/jet/JetReader.h"

#include "platform/base/Texts.h"
#include "platform/jet/JetError.h"
#include "platform/jet/JetStream.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <poll.h>
#include <system_error>

namespace platform {

namespace {

struct Settled
{
    std::string program;
    std::chrono::milliseconds patience = {};
};

Settled& TheSettled()
{
    static Settled settled;
    return settled;
}

std::chrono::milliseconds PatienceFor(std::uint64_t fileSize)
{
    const std::chrono::milliseconds settled = TheSettled().patience;
    return settled.count() > 0 ? settled : std::chrono::seconds(jet::MostSeconds(fileSize));
}

[[noreturn]] void Fail(const std::string& what) { throw JetError("Reading the Jet database: " + what); }

std::string Cause(int error) { return std::strerror(error); }

std::uint64_t SizeOf(int file)
{
    struct stat status = {};
    if (::fstat(file, &status) != 0) {
        Fail(Cause(errno));
    }
    return static_cast<std::uint64_t>(status.st_size);
}

} // namespace

std::string JetReaderProgram()
{
    if (!TheSettled().program.empty()) {
        return TheSettled().program;
    }
    std::error_code error;
    return (std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / "vexa-jet").string();
}

void SetJetReaderProgram(const std::string& program, std::chrono::milliseconds patience)
{
    TheSettled() = {program, patience};
}

JetReader::JetReader(int file) : m_process(JetReaderProgram(), file)
{
    const std::uint64_t size = SizeOf(file);
    m_bytesLeft = jet::MostBytes(size);
    m_deadline = std::chrono::steady_clock::now() + PatienceFor(size);
}

/// Waits for more; false at the end of the output.
bool JetReader::Fill()
{
    using std::chrono::milliseconds;
    for (;;) {
        const auto left =
            std::chrono::duration_cast<milliseconds>(m_deadline - std::chrono::steady_clock::now());
        if (left <= milliseconds(0)) {
            Fail("it takes too long");
        }
        pollfd wait = {m_process.Output(), POLLIN, 0};
        const int ready = ::poll(&wait, 1, static_cast<int>(left.count()));
        const ssize_t count = ready > 0 ? ::read(m_process.Output(), m_buffer.data(), m_buffer.size()) : -1;
        if (count >= 0) {
            m_place = 0;
            m_end = static_cast<std::size_t>(count);
            return count > 0;
        }
        if (ready != 0 && errno != EINTR) {
            Fail(Cause(errno));
        }
    }
}

void JetReader::Take(void* target, std::size_t size)
{
    if (size > m_bytesLeft) {
        Fail("it comes to more than such a file can hold");
    }
    m_bytesLeft -= size;
    auto* place = static_cast<char*>(target);
    while (size > 0) {
        if (m_place == m_end && !Fill()) {
            Fail("it ended early");
        }
        const std::size_t count = std::min(size, m_end - m_place);
        std::memcpy(place, m_buffer.data() + m_place, count);
        place += count;
        m_place += count;
        size -= count;
    }
}

std::uint8_t JetReader::Byte()
{
    std::uint8_t value = 0;
    Take(&value, sizeof value);
    return value;
}

std::uint16_t JetReader::Number16()
{
    std::uint16_t value = 0;
    Take(&value, sizeof value);
    return value;
}

std::uint32_t JetReader::Number32()
{
    std::uint32_t value = 0;
    Take(&value, sizeof value);
    return value;
}

std::int64_t JetReader::Number64()
{
    std::int64_t value = 0;
    Take(&value, sizeof value);
    return value;
}

double JetReader::Floating()
{
    double value = 0;
    Take(&value, sizeof value);
    return value;
}

std::string JetReader::Name()
{
    const std::size_t size = Number16();
    if (size == 0 || size > jet::kLongestName) {
        Fail("a name is too long, or empty");
    }
    return TakeText(size);
}

std::string JetReader::Text()
{
    const std::size_t size = Number32();
    if (size > jet::kLongestText) {
        Fail("a text is too long");
    }
    return TakeText(size);
}

std::string JetReader::TakeText(std::size_t size)
{
    std::string text;
    constexpr std::size_t kPiece = 1 << 20; // no memory for what has only been promised
    while (text.size() < size) {
        const std::size_t start = text.size();
        text.resize(std::min(size, start + kPiece));
        Take(text.data() + start, text.size() - start);
    }
    if (ValidUtf8(text) != text) {
        Fail("a text is not well formed");
    }
    return text;
}

void JetReader::Finish()
{
    if (m_place != m_end || Fill()) {
        Fail("there is something behind the end");
    }
    if (!m_process.EndsWell()) {
        Fail("the reading program failed");
    }
}

} // namespace platform
