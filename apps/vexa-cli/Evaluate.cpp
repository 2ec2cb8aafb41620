#include "platform/base/Errors.h"
#include "vexa-cli/Commands.h"
#include "vexa-cli/EvaluateParts.h"
#include "vexa-cli/OpenFile.h"
#include "vexa-cli/Progress.h"

#include <ostream>

namespace vexa_cli {

namespace {

/// What became of one file.
struct Evaluation
{
    ExitStatus status = ExitStatus::Done;
    std::string document; // when Done
    std::string error;    // else, in one line
};

std::string Joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& line : words) {
        text += (text.empty() || line.empty() ? "" : " ") + line;
    }
    return text;
}

Evaluation EvaluateFile(const std::string& path, JsonWriter::Layout layout, Console& console)
{
    Evaluation evaluation;
    try {
        const OpenFile file(path, console);
        evaluation.status = file.Status();
        if (file.Status() == ExitStatus::Done) {
            JsonWriter json(layout);
            WriteDocument(json, path);
            evaluation.document = json.Take();
        } else {
            evaluation.error = Joined(console.desktop.WordsShown());
        }
    } catch (const platform::Error& error) {
        console.err << path << ": " << error.what() << '\n';
        evaluation = {ExitStatus::Failed, {}, error.what()};
    }
    return evaluation;
}

std::string ErrorLine(const std::string& path, const std::string& error)
{
    JsonWriter json(JsonWriter::Layout::Compact);
    json.BeginObject();
    json.Key("file");
    json.Value(path);
    json.Key("error");
    json.Value(error);
    json.EndObject();
    return json.Take();
}

/// A failure outweighs a cancelled question.
ExitStatus Worse(ExitStatus a, ExitStatus b)
{
    if (a == ExitStatus::Failed || b == ExitStatus::Failed) {
        return ExitStatus::Failed;
    }
    return a == ExitStatus::Done ? b : a;
}

ExitStatus EvaluateMany(const std::vector<std::string>& paths, Console& console)
{
    ExitStatus status = ExitStatus::Done;
    Progress progress(console.err, paths.size());
    for (const std::string& path : paths) {
        progress.Step(path);
        const Evaluation evaluation = EvaluateFile(path, JsonWriter::Layout::Compact, console);
        const bool done = evaluation.status == ExitStatus::Done;
        console.out << (done ? evaluation.document : ErrorLine(path, evaluation.error)) << std::flush;
        status = Worse(status, evaluation.status);
    }
    return status;
}

} // namespace

ExitStatus Evaluate(const Request& request, Console& console)
{
    if (request.files.size() > 1) {
        return EvaluateMany(request.files, console);
    }
    const Evaluation evaluation = EvaluateFile(request.files.front(), JsonWriter::Layout::Pretty, console);
    console.out << evaluation.document;
    return evaluation.status;
}

} // namespace vexa_cli
