#pragma once

#include "platform/jet/JetStream.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexa_jet {

/// The stream on standard output. What is written goes out record by record, so that a failure always stands
/// where a record may begin.
class Output
{
public:
    explicit Output(std::uint64_t mostBytes) : m_left(mostBytes) {}

    void Byte(std::uint8_t value) { Add(&value, sizeof value); }
    void Number32(std::uint32_t value) { Add(&value, sizeof value); }
    void Name(const std::string& name);
    void Begin(platform::jet::Record record) { Byte(static_cast<std::uint8_t>(record)); }
    void Raw(std::string_view bytes) { Add(bytes.data(), bytes.size()); }

    void Null() { Mark(platform::jet::CellMark::Null); }
    void Boolean(bool value);
    void Whole(std::int64_t value);
    void Money(std::int64_t tenThousandths);
    void Floating(double value);
    void Text(std::string_view text);

    /// The record is whole. Throws Failure when the stream has become too long or nobody reads it.
    void EndRecord();
    /// Drops an unfinished record and ends the stream with the cause.
    void Fail(const std::string& cause);
    /// Everything is written.
    void Flush();

private:
    void Mark(platform::jet::CellMark mark) { Byte(static_cast<std::uint8_t>(mark)); }
    void Add(const void* bytes, std::size_t size);

    std::string m_record;
    std::uint64_t m_left;
};

} // namespace vexa_jet
