// Runs the batch tool as a process, on simulated cameras of the test's own.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

struct Outcome
{
    int status = -1; // -1 when the program crashed or never ended
    QString out;
    QString err;

    QStringList Lines() const { return out.split('\n', Qt::SkipEmptyParts); }
};

// Arguments that must fail with this status and text.
struct Refusal
{
    QStringList arguments;
    const char* text;
    int status = 1;
};

// Each test has an empty state folder and a rig of small cameras of all families. "MONO" (320 x 240) mirrors both ways,
// "COLOUR" (Bayer RG, 352 x 288) cannot read an empty user file, "PLAIN" has no correction.
class ToolTest : public testing::Test
{
protected:
    ToolTest();

    // Adds faults to the camera "MONO", as a JSON array.
    void WriteRig(const QString& faults = "[]");
    Outcome Cli(const QStringList& arguments) const;
    Outcome Control(const QStringList& arguments) const;
    // A process of the tool that goes on beside the test.
    std::unique_ptr<QProcess> StartCli(const QStringList& arguments) const;
    QString Path(const QString& name) const { return m_folder.filePath(name); }
    // Gives the file's path.
    QString Write(const QString& name, const QByteArray& bytes) const;
    static QByteArray Bytes(const QString& path);
    // Writes a pixel list file from lines "type x y width height" and gives its path.
    QString PixelList(const QString& name, const QStringList& lines) const;
    void ExpectRefusals(const std::vector<Refusal>& refusals) const;

private:
    Outcome Run(const QString& program, const QStringList& arguments) const;
    QProcessEnvironment Environment() const;

    QTemporaryDir m_folder;
};
