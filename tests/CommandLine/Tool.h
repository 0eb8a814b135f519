// Runs the batch tool as a process, on simulated cameras of the test's own.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

struct Outcome
{
    int status = -1; // -1 when the program crashed or never ended
    QString out;
    QString err;

    QStringList Lines() const { return out.split('\n', Qt::SkipEmptyParts); }
};

// Each test has an empty state folder and a rig of small cameras: "MONO" (320 x 240, mirrors both ways), "COLOUR"
// (Bayer RG, 352 x 288, an empty user file cannot be read) "PLAIN", without correction, and "TAMORIN" with numbered
// datasets.
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
    // Writes a pixel list file from lines "type x y width height" and gives its path.
    QString PixelList(const QString& name, const QStringList& lines) const;

private:
    Outcome Run(const QString& program, const QStringList& arguments) const;
    QProcessEnvironment Environment() const;

    QTemporaryDir m_folder;
};
