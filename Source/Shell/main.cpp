// Start of the program with its window.
#include "ApplicationStyle.h"
#include "MainWindow.h"
#include "Resources.h"

#include <QApplication>
#include <QScreen>

namespace
{

// In the middle of the primary screen, and no larger than it. Placed by hand, so that the position is known before the
// window manager has answered: the welcome covers the window by it.
void PlaceOnScreen(QWidget& window)
{
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    QRect place(QPoint(), window.size().boundedTo(available.size()));
    place.moveCenter(available.center());
    window.setGeometry(place);
}

} // namespace

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
    PlaceOnScreen(window);
    window.show();
    // Only a shown window has its real size, by which the floating panels are placed and which the welcome covers.
    window.SetProperSizes();
    window.WelcomingDialog();
    return QApplication::exec();
}
