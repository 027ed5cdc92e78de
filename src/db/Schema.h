#pragma once
// The tables of a school year (Xestion.mdb) and of the print staging
// database (Impresion.mdb). Only SQLite's own types and collations, so any
// SQLite tool can open a year; keys are INTEGER PRIMARY KEY, given by the
// program, never by the engine.
#include <QString>
#include <QStringList>

namespace db {

class Connection;

namespace Schema {

// DDL of a year: every table, Booleans defaulting to False.
QString YearDdl();
// DDL of the print staging database.
QString PrintDdl();

// Creates a new file with the tables; throws RuntimeError if it exists.
void CreateYear(const QString& path);
void CreatePrint(const QString& path);
// Brings a staging database of an earlier version (numeric marks, task
// types without their evaluation row) to the present tables; true when it did. The caller opens the
// connection anew afterwards, so that it sees the new declarations.
bool UpdatePrint(Connection& cn);

// The names of the tables of a year, in creation order.
QStringList YearTables();

} // namespace Schema
} // namespace db
