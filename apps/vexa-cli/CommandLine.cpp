#include "vexa-cli/CommandLine.h"

#include "session/SessionState.h"

// The only file that sees the parser: its templates are slow to compile.
#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <sstream>

namespace vexa_cli {

namespace {

constexpr int kSections = 10;

/// The parser with its commands, each of which writes into the request.
class Parser
{
public:
    Parser() : m_app("Works on VEXA data files without a window.", "vexa-cli")
    {
        m_app.set_version_flag("--version", std::string(kProgramTitle) + " " + kProgramVersion);
        m_app.require_subcommand(1);
        AddNew();
        AddEvaluate();
        AddReport();
        AddConvert();
        AddDump();
        AddCheck();
        AddTable();
    }

    CommandLine Read(std::vector<std::string> arguments)
    {
        CommandLine line;
        try {
            m_app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
            if (m_request.files.empty()) {
                m_request.files.push_back(m_file);
            }
            line.request = m_request;
        } catch (const CLI::ParseError& error) {
            std::ostringstream out;
            std::ostringstream err;
            line.status = m_app.exit(error, out, err) == 0 ? ExitStatus::Done : ExitStatus::Usage;
            line.out = out.str();
            line.err = err.str();
        }
        return line;
    }

private:
    CLI::App& Add(Command command, const char* name, const char* description)
    {
        CLI::App& added = *m_app.add_subcommand(name, description);
        added.callback([this, command] { m_request.command = command; });
        return added;
    }
    void AddFile(CLI::App& command, const char* description)
    {
        command.add_option("FILE", m_file, description)->required();
    }
    void AddYes(CLI::App& command)
    {
        command.add_flag("--yes", m_request.yes, "Answer every question with OK or Yes");
    }

    void AddNew()
    {
        CLI::App& command = Add(Command::New, "new", "Makes a new data file from the template");
        AddFile(command, "The file to make");
        AddYes(command);
    }
    void AddEvaluate()
    {
        CLI::App& command =
            Add(Command::Evaluate, "evaluate", "Prints every figure of the decision model, as JSON");
        command.add_option("FILE", m_request.files, "The data files; with more than one, a document a line")
            ->required();
        AddYes(command);
    }
    void AddReport()
    {
        CLI::App& command = Add(Command::Report, "report", "Writes the report");
        AddFile(command, "The data file");
        command.add_option("OUT", m_request.reportTarget, "A .pdf or .rtf file, or a folder for .png pages")
            ->required();
        command
            .add_option("--sections", m_request.reportSections, "Sections, such as 1,2,10; without it all")
            ->delimiter(',')
            ->check(CLI::Range(1, kSections));
        AddYes(command);
    }
    void AddConvert()
    {
        CLI::App& command = Add(
            Command::Convert, "convert", "Opens a file as the desktop would, converting it where it must");
        AddFile(command, "The data file");
        AddYes(command);
    }
    void AddDump()
    {
        CLI::App& command = Add(Command::Dump, "dump", "Prints the rows of the tables, as JSON");
        AddFile(command, "A data file of any format; it is not changed");
        command.add_option("TABLE", m_request.tables, "The tables; without any, all");
    }
    void AddCheck()
    {
        CLI::App& command =
            Add(Command::Check, "check", "Prints what is wrong with a file, a line each; \"ok\" for nothing");
        AddFile(command, "A data file of any format; it is not changed");
        command.footer("The exit status is 0 with findings too, and 1 when the file could not be read.");
    }
    void AddTable()
    {
        CLI::App& command =
            Add(Command::Table, "table", "Prints the alternatives and outcomes as a table to read");
        AddFile(command, "The data file");
        command.footer("* the most cost effective alternative, > the selected one; - a figure that fails.");
    }

    CLI::App m_app;
    Request m_request;
    std::string m_file; // of the commands that take one
};

} // namespace

CommandLine ReadCommandLine(const std::vector<std::string>& arguments) { return Parser().Read(arguments); }

} // namespace vexa_cli
