#pragma once

#include "platform/jet/ReaderProcess.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <string>

namespace platform {

/// The program that reads Jet databases; by default "vexa-jet" beside the running program.
std::string JetReaderProgram();
/// Settles another one, and how long it may take at most (tests; an empty text asks the rule above again, no
/// time goes by the size of the file).
void SetJetReaderProgram(const std::string& program, std::chrono::milliseconds patience = {});

/// A process that reads a Jet database, and what it writes. The process is not trusted: it has a limited time
/// and may write a limited number of bytes. Every member throws JetError for what is
/// beyond a limit, for an output that ends early, and with the process's own words when it gives up.
class JetReader
{
public:
    /// Starts reading an open file, which it does not own.
    explicit JetReader(int file);
    JetReader(const JetReader&) = delete;
    JetReader& operator=(const JetReader&) = delete;

    std::uint8_t Byte();
    std::uint16_t Number16();
    std::uint32_t Number32();
    std::int64_t Number64();
    double Floating();
    /// Texts are checked to be UTF-8.
    std::string Name();
    std::string Text();
    /// Throws unless the output is at its end and the process was content.
    void Finish();

private:
    void Take(void* target, std::size_t size);
    bool Fill();
    std::string TakeText(std::size_t size);

    ReaderProcess m_process;
    std::uint64_t m_bytesLeft = 0;
    std::chrono::steady_clock::time_point m_deadline;
    std::array<char, 1 << 16> m_buffer{};
    std::size_t m_place = 0;
    std::size_t m_end = 0;
};

} // namespace platform
