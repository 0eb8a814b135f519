// Start of the program with its window.
#include "ApplicationStyle.h"
#include "MainWindow.h"
#include "Resources.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lorvane"));
    QApplication::setDesktopFileName(QStringLiteral("lorvane"));
    Lorvane::InitialiseResources();
    Lorvane::ApplyDarkLook(application);
    application.setStyleSheet(Lorvane::ApplicationStyleSheet());

    MainWindow window;
    window.show();
    // Only a shown window has its real size, by which the floating panels are placed and which the welcome covers.
    window.SetProperSizes();
    window.WelcomingDialog();
    return QApplication::exec();
}
