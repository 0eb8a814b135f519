// A working directory of a test's own, with the simulated cameras behind the camera API.
#pragma once

#include "Control/ControlProgram.h"
#include "Rig/Rig.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sstream>

class SimulatedFolder
{
public:
    // The rig is a JSON object.
    explicit SimulatedFolder(const QByteArray& rig)
    {
        QDir::setCurrent(m_folder.path());
        WriteFile("rig.json", rig);
        qputenv("ZLT_SIMULATION_RIG", m_folder.filePath("rig.json").toUtf8());
        qputenv("ZLT_SIMULATION_STATE", m_folder.filePath("state").toUtf8());
        qputenv("ZLT_PROVIDER_PATH", SIMULATION_FOLDER);
    }
    ~SimulatedFolder() { QDir::setCurrent(m_before); }
    SimulatedFolder(const SimulatedFolder&) = delete;
    SimulatedFolder& operator=(const SimulatedFolder&) = delete;

    static void WriteFile(const char* name, const QByteArray& text)
    {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void Control(const std::vector<std::string>& arguments) const
    {
        std::ostringstream out;
        std::ostringstream err;
        Simulation::ControlProgram program(Simulation::LoadRig(), m_folder.filePath("state").toStdString(), out, err);
        ASSERT_EQ(program.Run(arguments), 0) << err.str();
    }

private:
    const QString m_before = QDir::currentPath();
    const QTemporaryDir m_folder;
};
