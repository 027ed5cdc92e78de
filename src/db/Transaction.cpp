#include "db/Transaction.h"

#include "vb/RuntimeError.h"

namespace db {

Transaction::Transaction(Connection& cn) : cn_(cn)
{
    // Takes the write lock at once, so that nothing is half done when another
    // writer holds the file.
    cn_.ExecuteNative(QStringLiteral("BEGIN IMMEDIATE"));
}

Transaction::~Transaction()
{
    if (!open_ || !cn_.IsOpen())
        return;
    try {
        cn_.ExecuteNative(QStringLiteral("ROLLBACK"));
    } catch (const RuntimeError&) {
        // SQLite rolls back by itself on some failures; nothing is left to undo.
    }
}

void Transaction::commit()
{
    cn_.ExecuteNative(QStringLiteral("COMMIT"));
    open_ = false;
}

} // namespace db
