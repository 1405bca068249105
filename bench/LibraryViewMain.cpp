// A piece of bench/batch: veka_bench_library LIBRARY
// Opens a library in the view of the window, types a text into the filter key by key, sorts by a column and
// scrolls. Prints how long the view takes to show the library, and how long the window at most stops to
// answer.

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QThread>
#include <iostream>

#include "host/qt/LibraryView.h"

namespace {

/// Handles events for so long, and returns the longest time in ms that one look at the events took.
double Work(int milliseconds) {
    QElapsedTimer all;
    all.start();
    double longest = 0;
    while (all.elapsed() < milliseconds) {
        QElapsedTimer one;
        one.start();
        QCoreApplication::processEvents();
        longest = std::max(longest, static_cast<double>(one.nsecsElapsed()) / 1e6);
        QThread::msleep(1);
    }
    return longest;
}

int Measure(const char* library) {
    host::LibraryView view([](const CString&) {});
    view.resize(700, 600);
    view.show();
    Work(200);
    QElapsedTimer timer;
    timer.start();
    view.Open(library);
    view.grab();
    std::cout << "shown after " << static_cast<double>(timer.nsecsElapsed()) / 1e6
              << " ms: " << view.findChild<QLabel*>("libraryState")->text().toStdString() << '\n';

    auto* const filter = view.findChild<QLineEdit*>("libraryFilter");
    double longest = 0;
    for (const char* text : {"p", "amplifier type 12", "maker two driver", "PX1"}) {
        filter->clear();
        longest = std::max(longest, Work(300));
        for (const char* key = text; *key; ++key) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar(*key)));
            QCoreApplication::sendEvent(filter, &press);
            // After this time a search follows.
            longest = std::max(longest, Work(160));
        }
    }
    std::cout << "typing stops the window for " << longest << " ms at most\n";
    filter->clear();
    Work(300);
    auto* const table = view.findChild<QTableView*>("libraryParts");
    double sorting = 0;
    for (int column = 0; column < table->model()->columnCount(); ++column) {
        timer.restart();
        table->sortByColumn(column, Qt::DescendingOrder);
        view.grab();
        sorting = std::max(sorting, static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::cout << "sorting by a column takes " << sorting << " ms at most\n";
    double scrolling = 0;
    for (int place = 0; place <= 100; ++place) {
        timer.restart();
        table->verticalScrollBar()->setValue(table->verticalScrollBar()->maximum() * place / 100);
        view.grab();
        scrolling = std::max(scrolling, static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::cout << "scrolling takes " << scrolling << " ms at most\n";
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "veka_bench_library LIBRARY\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return Measure(argv[1]);
}
