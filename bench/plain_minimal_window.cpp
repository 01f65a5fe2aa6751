// The least that a program with a main window and a list can be: the measure for the start.
#include <QApplication>
#include <QMainWindow>
#include <QTimer>
#include <QTreeView>

#include <cstdio>
#include <ctime>

namespace {

// Prints the time of the first paint, counted from the moment that the environment names, and ends.
class FirstPaint : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            QCoreApplication::instance()->removeEventFilter(this);
            QTimer::singleShot(0, this, [] {
                timespec now{};
                ::clock_gettime(CLOCK_MONOTONIC, &now);
                const qint64 nowNs = static_cast<qint64>(now.tv_sec) * 1000000000 + now.tv_nsec;
                const qint64 startedNs = qgetenv("TESSEL_TRACE_START").toLongLong();
                std::fprintf(stderr, "first paint %.2f\n", static_cast<double>(nowNs - startedNs) / 1e6);
            });
        }
        return false;
    }
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    FirstPaint firstPaint;
    application.installEventFilter(&firstPaint);
    QMainWindow window;
    QTreeView list;
    window.setCentralWidget(&list);
    window.resize(800, 600);
    window.show();
    return QApplication::exec();
}
