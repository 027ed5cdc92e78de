#pragma once
// One write transaction on a connection: everything executed through it
// between the constructor and commit() is written together, or, when the
// scope is left without commit() (an exception on the way), not at all.
//
//     db::Transaction tx(*cn);
//     cn->Execute(...);  rs.Update();  ...
//     tx.commit();
#include "db/Connection.h"

namespace db {

class Transaction {
public:
    explicit Transaction(Connection& cn);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Connection& cn_;
    bool open_ = true;
};

} // namespace db
