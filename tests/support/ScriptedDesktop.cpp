#include "support/ScriptedDesktop.h"

#include "platform/base/Texts.h"

#include <gtest/gtest.h>

#include <utility>

namespace support {

void ScriptedDesktop::Expect(const platform::Message& message, platform::Answer answer)
{
    m_boxes.push_back({message, answer});
}

void ScriptedDesktop::ExpectText(std::vector<std::string> lines)
{
    platform::Message message;
    message.lines = std::move(lines);
    Expect(message);
}

void ScriptedDesktop::ExpectFile(const std::string& title, const std::string& path)
{
    m_files.push_back({title, path});
}

void ScriptedDesktop::CheckDone()
{
    for (const ExpectedBox& box : m_boxes) {
        ADD_FAILURE() << "this box never came: " << platform::JoinLines(box.message.lines);
    }
    for (const ExpectedFile& file : m_files) {
        ADD_FAILURE() << "this file dialog never came: " << file.title;
    }
    m_boxes.clear();
    m_files.clear();
}

platform::Answer ScriptedDesktop::Show(const platform::Message& message)
{
    const std::string text = platform::JoinLines(message.lines);
    if (m_boxes.empty()) {
        ADD_FAILURE() << "nobody expected this box: " << message.title << "\n" << text;
        return message.preset;
    }
    const ExpectedBox expected = m_boxes.front();
    m_boxes.pop_front();
    EXPECT_EQ(message.title, expected.message.title) << text;
    EXPECT_EQ(text, platform::JoinLines(expected.message.lines));
    EXPECT_EQ(message.buttons, expected.message.buttons) << text;
    EXPECT_EQ(message.preset, expected.message.preset) << text;
    EXPECT_EQ(message.icon, expected.message.icon) << text;
    return expected.answer;
}

std::optional<std::string> ScriptedDesktop::AskFile(const platform::FileRequest& request)
{
    if (m_files.empty()) {
        ADD_FAILURE() << "nobody expected this file dialog: " << request.title;
        return std::nullopt;
    }
    const ExpectedFile expected = m_files.front();
    m_files.pop_front();
    EXPECT_EQ(request.title, expected.title);
    if (lookAtFileRequest) {
        lookAtFileRequest(request);
    }
    return expected.path.empty() ? std::nullopt : std::optional(expected.path);
}

void ScriptedDesktop::ShowHelp(const std::string& helpFile, int topic)
{
    calls.push_back("ShowHelp " + helpFile + " " + std::to_string(topic));
}

bool ScriptedDesktop::StartProgram(const std::string& program, const std::string& argument)
{
    calls.push_back("StartProgram " + program + " " + argument);
    return startsPrograms;
}

} // namespace support
