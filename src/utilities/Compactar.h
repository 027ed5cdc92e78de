#pragma once
// Compaction of the year's database, run when a new year is made.
//
// The compacted copy is written to the scratch file <program>/<year>/XestionC.mdb
// (under the program folder, though the year lies under the base folder),
// then put in place of gRutaBD, and the session is opened again. The scratch
// file stays. A compaction that fails ends the program.
void Compactar();
