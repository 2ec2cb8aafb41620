#pragma once

#include "support/ScriptedDesktop.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace support {

using Rows = std::vector<std::vector<std::string>>;

/// Runs SQL on a file that no session has open.
void ExecuteSql(const std::string& path, const std::string& sql);
/// The rows of a query on a file that no session has open; null reads "NULL".
Rows QuerySql(const std::string& path, const std::string& sql);

/// A session of its own for each test: a program folder with the template, a scripted desktop, connected
/// stores.
class TestSession : public ::testing::Test
{
protected:
    TestSession();
    ~TestSession() override;

    /// A new data file with SQL applied to it; its path.
    std::string MakeFile(const std::string& sql = {}, const std::string& name = "Fire.qel");
    /// A copy of a built sample ("smith-creek") with SQL applied to it; its path.
    std::string CopySample(const std::string& name, const std::string& sql = {});
    /// Closes what is open, drops the stores, opens this file; fails the test if it does not open.
    void Open(const std::string& path);
    void OpenNew(const std::string& sql = {}) { Open(MakeFile(sql)); }
    void OpenSample(const std::string& name, const std::string& sql = {}) { Open(CopySample(name, sql)); }
    /// Closes the file and drops the stores.
    void Close();
    /// Closes, then asks the file that was opened last.
    Rows Query(const std::string& sql);
    /// The log's lines without their times.
    std::vector<std::string> LogLines() const;
    std::string ErrorLog() const;

    TempFolder folder; // the program folder
    ScriptedDesktop desktop;
    std::string path; // of the file opened last

private:
    void CloseIfOpened(const std::string& made);
};

} // namespace support
