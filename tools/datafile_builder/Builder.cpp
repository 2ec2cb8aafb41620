#include "datafile_builder/Builder.h"

#include "datafile_builder/BuildError.h"
#include "datafile_builder/DatafileWriter.h"
#include "datafile_builder/DraftFile.h"
#include "datafile_builder/FireLoader.h"
#include "datafile_builder/SourceObject.h"
#include "datafile_builder/TemplateBuilder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>

namespace datafile_builder {

namespace {

std::string ReadSource(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) throw BuildError("cannot be read");
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Runs a step and puts the file that it is about before the message of what it throws.
template <class Step> auto About(const std::string& path, const Step& step)
{
    try {
        return step();
    } catch (const std::exception& error) {
        throw BuildError(path + ": " + error.what());
    }
}

SourceObject::Json ParseSource(const std::string& path)
{
    return About(path, [&] { return SourceObject::Json::parse(ReadSource(path)); });
}

void BuildTemplate(const std::string& schema, const std::string& content, const std::string& output)
{
    const SourceObject::Json document = ParseSource(content);
    DraftFile draft(output);
    DatafileWriter writer(draft.Path());
    About(schema, [&] { writer.RunScript(ReadSource(schema)); });
    About(content, [&] { WriteTemplate(writer, SourceObject(document, "")); });
    writer.Finish();
    draft.Publish();
}

void BuildFire(const std::string& emptyFile, const std::string& fire, const std::string& output)
{
    const SourceObject::Json document = ParseSource(fire);
    DraftFile draft(output);
    About(emptyFile, [&] { std::filesystem::copy_file(emptyFile, draft.Path()); });
    DatafileWriter writer(draft.Path());
    About(fire, [&] { WriteFire(writer, SourceObject(document, "")); });
    writer.Finish();
    draft.Publish();
}

void Build(const std::vector<std::string>& arguments)
{
    if (arguments.size() == 4 && arguments[0] == "template") {
        BuildTemplate(arguments[1], arguments[2], arguments[3]);
    } else if (arguments.size() == 4 && arguments[0] == "fire") {
        BuildFire(arguments[1], arguments[2], arguments[3]);
    } else {
        throw BuildError("usage: template SCHEMA CONTENT OUTPUT | fire TEMPLATE FIRE OUTPUT");
    }
}

} // namespace

int RunBuilder(const std::vector<std::string>& arguments, std::ostream& errors)
{
    try {
        Build(arguments);
        return 0;
    } catch (const std::exception& error) {
        errors << "vexa-build-datafile: " << error.what() << '\n';
        return 1;
    }
}

} // namespace datafile_builder
