// Another program writing to a year while the tests copy it. Every interval
// (50 ms unless told) one transaction adds a mark and an incident under the
// same key, so that a copy of one moment holds as many of one as of the
// other. It says "ready" after its first write and, when its standard input
// closes, how many it wrote. A write that cannot get in (the year stayed
// locked past the busy timeout) ends it with code 1.
//
//     year_writer YEAR_FILE FIRST_KEY [INTERVAL_MS]
#include "db/Connection.h"
#include "vb/RuntimeError.h"

#include <QString>

#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <unistd.h>

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "year_writer YEAR_FILE FIRST_KEY [INTERVAL_MS]\n");
        return 2;
    }
    const QString path = QString::fromLocal8Bit(argv[1]);
    const long long first = std::atoll(argv[2]);
    const int interval = argc > 3 ? std::atoi(argv[3]) : 50;
    long long written = 0;
    try {
        const db::ConnectionPtr cn = db::Connection::Open(path);
        for (;;) {
            cn->ExecuteNative(QStringLiteral("BEGIN; "
                                             "INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota) VALUES (%1, 1, 1, 5); "
                                             "INSERT INTO tblIncidencias (Id, IdAlu, Asunto) VALUES (%1, 1, 'otro'); "
                                             "COMMIT;")
                                  .arg(first + written));
            if (++written == 1) {
                std::puts("ready");
                std::fflush(stdout);
            }
            pollfd in{STDIN_FILENO, POLLIN, 0};
            if (::poll(&in, 1, interval) > 0) {
                char c;
                if (::read(STDIN_FILENO, &c, 1) <= 0)
                    break;
            }
        }
    } catch (const RuntimeError& e) {
        std::fprintf(stderr, "%s\n", qPrintable(e.Description()));
        std::printf("%lld\n", written);
        return 1;
    }
    std::printf("%lld\n", written);
    return 0;
}
