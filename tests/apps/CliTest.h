#pragma once

#include "platform/jet/JetReader.h"
#include "support/TestSession.h"
#include "vexa-cli/Run.h"

#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace support {

using Json = nlohmann::ordered_json;

/// A program folder and commands of the companion run in process.
class CliTest : public TestSession
{
protected:
    CliTest() { platform::SetJetReaderProgram(BuiltFile("vexa-jet")); }

    struct Result
    {
        int status = -1;
        std::string out;
        std::string err;
    };

    static Result Run(const std::vector<std::string>& arguments)
    {
        std::ostringstream out;
        std::ostringstream err;
        Result result;
        result.status = vexa_cli::Run(arguments, out, err);
        result.out = out.str();
        result.err = err.str();
        return result;
    }
    /// The document that `evaluate` prints of one file.
    static Json Evaluated(const std::string& file)
    {
        const Result result = Run({"evaluate", file});
        EXPECT_EQ(result.status, 0) << result.err;
        return Json::parse(result.out);
    }
    static std::vector<std::string> Lines(const std::string& text)
    {
        std::istringstream stream(text);
        std::vector<std::string> lines;
        for (std::string line; std::getline(stream, line);) {
            lines.push_back(line);
        }
        return lines;
    }
    /// A file made for these tests, copied into the program folder; its path.
    std::string CopyLegacy(const std::string& name)
    {
        const std::string copy = folder.File(name);
        CopyFile(DataFile("legacy/" + name), copy);
        return copy;
    }
};

} // namespace support
