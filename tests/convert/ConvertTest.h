#pragma once

#include "session/SessionLinks.h"
#include "session/u11Datafile.h"
#include "support/TestSession.h"

#include <string>
#include <vector>

namespace support {

/// The default body, and what stands around a text that was plain.
inline const std::string kRichStart =
    "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 "
    "Arial;}}{\\colortbl;\\red0"
    "\\green0\\blue0;\\red255\\green255\\blue255;}\\plain\\f0\\fs20 \\pard ";
inline std::string Rich(const std::string& text) { return kRichStart + text + "\\par }"; }

/// Files of older formats, changed by SQL and opened with the question answered OK.
class ConvertTest : public TestSession
{
protected:
    ConvertTest()
    {
        Links().QueryConvertTo5 = [] { return true; };
        Links().QueryConvertTo6 = [] { return true; };
    }
    /// A copy of a file of the tests' data with SQL applied to it.
    void MakeOld(const std::string& name, const std::string& sql = {})
    {
        Close();
        path = folder.File("Old.qel");
        CopyFile(DataFile("legacy/" + name + ".sqlite.qel"), path);
        ExecuteSql(path, sql);
    }
    /// Opens it: it ends as a Basic file.
    void ExpectOpens() { EXPECT_TRUE(u11Datafile::OpenDatafile(path)) << ErrorLog(); }
    /// Opens it: it ends as a Standard file, which this edition refuses.
    void ExpectEndsAsStandard()
    {
        desktop.ExpectText({"This is a VEXA Standard file.", "It cannot be opened in Basic mode."});
        EXPECT_FALSE(u11Datafile::OpenDatafile(path));
        EXPECT_EQ(ErrorLog(), "");
    }
    /// Opens it: a step fails.
    void ExpectFails()
    {
        desktop.ExpectText({"The file does not appear to be a VEXA Plus file.", "It cannot be opened."});
        EXPECT_FALSE(u11Datafile::OpenDatafile(path));
    }
    std::string Format()
    {
        return Query("SELECT Value FROM Properties WHERE Property = 'DataFormatID'")[0][0];
    }
};

} // namespace support
