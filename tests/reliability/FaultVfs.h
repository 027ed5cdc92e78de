#pragma once
// A shim over SQLite's default file system layer that fails the Nth write or
// sync it sees with a full disk or an I/O error, for the tests that prove a
// failing write leaves every file as it was. Installed as the default, so
// every connection opened afterwards goes through it, the engine's own and
// the copies' alike.
//
//     faultvfs::install();
//     faultvfs::arm(7, faultvfs::Fault::DiskFull);   // the 7th write or sync fails
//     ...
//     faultvfs::disarm();
namespace faultvfs {

enum class Fault { DiskFull, IoError };

void install();
// Counting starts afresh; the nth write or sync from now fails with `fault`.
void arm(int nth, Fault fault);
// Counting starts afresh and nothing fails; fired() still tells of the
// last armed failure.
void disarm();
// The writes and syncs seen since the last arm or disarm.
int operations();
// Whether the failure armed last has happened.
bool fired();

} // namespace faultvfs
