#pragma once

#include <QProcess>
#include <QStringList>

#include <memory>
#include <string>

/// A print service of the test's own on a port of this computer, with printers that write what they are sent
/// into files. It goes with the object; no printer of the computer is touched.
class PrintQueue
{
public:
    /// In a folder that is there.
    explicit PrintQueue(const std::string& folder);
    PrintQueue(const PrintQueue&) = delete;
    PrintQueue& operator=(const PrintQueue&) = delete;
    ~PrintQueue();

    /// Whether the service could be started: it is not installed everywhere.
    bool Runs() const { return m_runs; }
    /// A printer with Letter, A4 and Legal, of which one is its own.
    void AddPrinter(const std::string& name, const std::string& paper);
    void MakeDefault(const std::string& name);
    void Reject(const std::string& name);
    void Accept(const std::string& name);
    /// The service ends; its printers are gone.
    void End();

    /// The PDF that came out of a printer, when all jobs are done; empty when none came.
    std::string Printed(const std::string& printer) const;

private:
    void WriteSettings() const;
    void Start();
    static bool Command(const char* program, const QStringList& arguments);
    static QString Output(const char* program, const QStringList& arguments);

    std::string m_folder;
    std::string m_server; // host and port
    std::unique_ptr<QProcess> m_service;
    bool m_runs = false;
};
