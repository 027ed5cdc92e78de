#pragma once
// What the reports take from the world outside, behind a seam that tests
// answer in advance (the date they print comes from vb::Clock):
//
//     reports::Desktop::setOpenerForTest([&](const QString& f) { opened << f; });
//
// and put back with reset().
#include <QString>

#include <functional>

namespace reports {

// Opens a written file with the desktop's viewer.
class Desktop {
public:
    // False when no program of the machine opens files of its kind.
    static bool openFile(const QString& path);
    static void setOpenerForTest(std::function<void(const QString&)> opener);
    // Tests: a machine where nothing opens the file; openFile() returns false.
    static void setNoViewerForTest();
    static void reset();
};

} // namespace reports
