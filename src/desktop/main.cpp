#include <QApplication>
#include <QStandardPaths>
#include <clocale>

#include "application/application.h"
#include "desktop/desktop_desk.h"
#include "desktop/form_layouts.h"
#include "desktop/plot_window.h"
#include "desktop/program_folder.h"
#include "desktop/shown_text.h"
#include "mapengine/map_engine.h"

int main(int count, char** arguments) {
    QApplication qt(count, arguments);
    // Qt took the user's locale for its own texts; numbers and letters of files are the same everywhere.
    std::setlocale(LC_ALL, "C");
    QApplication::setApplicationName("crownlab");
    QApplication::setQuitOnLastWindowClosed(false);

    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    crownlab::DesktopDesk desk(crownlab::SetUpLayout, [](int status) { QApplication::exit(status); });
    crownlab::MapEngine engine(desk);
    crownlab::ActiveObjects objects(engine);
    desk.SetKeyTarget(engine);
    crownlab::Application application(
        desk,
        crownlab::ProgramFolder(crownlab::RecordText(QApplication::applicationDirPath()), crownlab::RecordText(config)),
        objects);
    crownlab::ShowPlots(desk, engine);
    return desk.Run(application);
}
