// A minimal program around RecordingManager for tests that must kill a
// recording process: "record <folder>" records the RIGHT monitor (painting a
// pattern there) until killed; "scan <folder>" only builds the manager, whose
// start-up scan logs what can be recovered, and exits.
#include "PatternWindow.h"
#include "X11RecordingSupport.h"
#include "recording/RecordingManager.h"
#include "settings/SettingsManager.h"

#include <QGuiApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 3)
        return 2;
    SettingsManager settings;
    settings.setCaptureSaveFolder(args.at(2));
    RecordingManager manager(&settings, X11Recording::realBackend());
    if (args.at(1) == QLatin1String("scan"))
        return 0;

    QScreen *screen = X11Recording::screenNamed(QStringLiteral("RIGHT"));
    if (!screen)
        return 3;
    PatternWindow pattern(screen);
    pattern.show();
    QObject::connect(&manager, &RecordingManager::stateChanged, &app,
                     [](RecordingManager::State state) {
                         if (state == RecordingManager::Recording) {
                             std::printf("RECORDING\n");
                             std::fflush(stdout);
                         } else if (state == RecordingManager::Failed) {
                             QCoreApplication::exit(4);
                         }
                     });
    manager.start(screen);
    return app.exec();
}
