-- Sample year for the statement corpus test: small but complete.
-- Keys are explicit, Booleans 0/1, dates ISO text, timetable hours HH:mm.

-- Levels, courses, groups. Group labels: "5º Primaria A" (tutored), "1º ESO B", "2º ESO C".
INSERT INTO tblNiveles (Id, Des) VALUES (1, 'Primaria');
INSERT INTO tblNiveles (Id, Des) VALUES (2, 'ESO');

INSERT INTO tblCursos (Id, Des, IdNivel) VALUES (1, '5º', 1);
INSERT INTO tblCursos (Id, Des, IdNivel) VALUES (2, '1º', 2);
INSERT INTO tblCursos (Id, Des, IdNivel) VALUES (3, '2º', 2);

INSERT INTO tblGrupos (Id, Des, IdCurso, Tit) VALUES (1, 'A', 1, 1);
INSERT INTO tblGrupos (Id, Des, IdCurso, Tit) VALUES (2, 'B', 2, 0);
INSERT INTO tblGrupos (Id, Des, IdCurso, Tit) VALUES (3, 'C', 3, 0);

-- Evaluation periods.
INSERT INTO tblEvaluaciones (Id, Des, Fec, Obs) VALUES (1, '1ª Evaluación', '2024-12-20', 'Primer trimestre');
INSERT INTO tblEvaluaciones (Id, Des, Fec, Obs) VALUES (2, '2ª Evaluación', '2025-03-28', 'Segundo trimestre');
INSERT INTO tblEvaluaciones (Id, Des, Fec, Obs) VALUES (3, '3ª Evaluación', '2025-06-20', NULL);

-- Subjects.
INSERT INTO tblMaterias (Id, Des, Obs) VALUES (1, 'Lengua', 'Lengua castellana y literatura');
INSERT INTO tblMaterias (Id, Des, Obs) VALUES (2, 'Matemáticas', NULL);
INSERT INTO tblMaterias (Id, Des, Obs) VALUES (3, 'Ciencias Naturales', 'Laboratorio los jueves');

-- Task types: scales 0-10, 0-5 and 0-100.
INSERT INTO tblTareasTipos (Id, Des, Min, Max, Val, Obs) VALUES (1, 'Examen', 0, 10, 1, 'Pruebas escritas');
INSERT INTO tblTareasTipos (Id, Des, Min, Max, Val, Obs) VALUES (2, 'Deberes', 0, 5, 1, NULL);
INSERT INTO tblTareasTipos (Id, Des, Min, Max, Val, Obs) VALUES (3, 'Proyecto', 0, 100, 1, 'Trabajo por proyectos');

-- Weights per type, evaluation, subject and group.
INSERT INTO tblTareasTiposValor (Id, IdTareaTip, IdEval, IdMat, IdGrupo, Valor) VALUES (1, 1, 1, 1, 1, 60);
INSERT INTO tblTareasTiposValor (Id, IdTareaTip, IdEval, IdMat, IdGrupo, Valor) VALUES (2, 2, 1, 1, 1, 30);
INSERT INTO tblTareasTiposValor (Id, IdTareaTip, IdEval, IdMat, IdGrupo, Valor) VALUES (3, 3, 1, 1, 1, 10);
INSERT INTO tblTareasTiposValor (Id, IdTareaTip, IdEval, IdMat, IdGrupo, Valor) VALUES (4, 1, 2, 1, 1, 100);
INSERT INTO tblTareasTiposValor (Id, IdTareaTip, IdEval, IdMat, IdGrupo, Valor) VALUES (5, 1, 1, 2, 2, 70);
INSERT INTO tblTareasTiposValor (Id, IdTareaTip, IdEval, IdMat, IdGrupo, Valor) VALUES (6, 2, 1, 2, 2, 30);
INSERT INTO tblTareasTiposValor (Id, IdTareaTip, IdEval, IdMat, IdGrupo, Valor) VALUES (7, 1, 1, 3, 3, 100);

-- Students: 3 in group 1, 2 in group 2, 2 in group 3, one in the deleted group 99.
INSERT INTO tblAlumnos (Id, Ape, Nom, FecNac, FecMat, Dir, CP, Pob, Pro, Pais, Pai, TelPai, MailPai, Nai, TelNai, MailNai, MailAlu, Obs, Grupo, Foto, AV) VALUES (1, 'García López', 'Ana', '2014-03-12', '2020-09-10', 'Rúa do Franco 12', '15702', 'Santiago de Compostela', 'A Coruña', 'España', 'Manuel García', '600111222', 'manuel.garcia@example.com', 'Rosa López', '600333444', 'rosa.lopez@example.com', 'ana.garcia@example.com', 'Alergia al polen', 1, 'C:\Fotos\ana.jpg', 0);
INSERT INTO tblAlumnos (Id, Ape, Nom, FecNac, FecMat, Dir, CP, Pob, Pro, Pais, Pai, TelPai, MailPai, Nai, TelNai, MailNai, MailAlu, Obs, Grupo, Foto, AV) VALUES (2, 'Fernández Núñez', 'Brais', '2014-07-01', NULL, 'Avenida de Lugo 3', '15703', 'Santiago de Compostela', 'A Coruña', 'España', 'Xosé Fernández', '600555666', 'xose.fernandez@example.com', 'Lucía Núñez', '600777888', 'lucia.nunez@example.com', 'brais.fernandez@example.com', NULL, 1, NULL, 1);
INSERT INTO tblAlumnos (Id, Ape, Nom, FecNac, FecMat, Dir, CP, Pob, Pro, Pais, Pai, TelPai, MailPai, Nai, TelNai, MailNai, MailAlu, Obs, Grupo, Foto, AV) VALUES (3, 'Pérez Castro', 'Uxía', NULL, '2021-09-08', 'Praza de Galicia 5', '15701', 'Santiago de Compostela', 'A Coruña', 'España', 'Antón Pérez', '611000111', NULL, 'Carme Castro', '611000222', 'carme.castro@example.com', 'uxia.perez@example.com', NULL, 1, NULL, 0);
INSERT INTO tblAlumnos (Id, Ape, Nom, FecNac, FecMat, Dir, CP, Pob, Pro, Pais, Pai, TelPai, MailPai, Nai, TelNai, MailNai, MailAlu, Obs, Grupo, Foto, AV) VALUES (4, 'Rodríguez Iglesias', 'Íñigo', '2012-01-30', '2023-09-11', 'Calle Mayor 8', '36001', 'Pontevedra', 'Pontevedra', 'España', 'Iñaki Rodríguez', '622111333', 'inaki.rodriguez@example.com', 'Marta Iglesias', '622444555', NULL, 'inigo.rodriguez@example.com', 'Repite curso', 2, NULL, 0);
INSERT INTO tblAlumnos (Id, Ape, Nom, FecNac, FecMat, Dir, CP, Pob, Pro, Pais, Pai, TelPai, MailPai, Nai, TelNai, MailNai, MailAlu, Obs, Grupo, Foto, AV) VALUES (5, 'Martínez Otero', 'Sabela', '2012-05-17', '2023-09-11', 'Rúa Nova 21', '36002', 'Pontevedra', 'Pontevedra', 'España', 'Pablo Martínez', '633222444', NULL, 'Noelia Otero', '633555777', 'noelia.otero@example.com', 'sabela.martinez@example.com', NULL, 2, NULL, 1);
INSERT INTO tblAlumnos (Id, Ape, Nom, FecNac, FecMat, Dir, CP, Pob, Pro, Pais, Pai, TelPai, MailPai, Nai, TelNai, MailNai, MailAlu, Obs, Grupo, Foto, AV) VALUES (6, 'Vázquez Muñoz', 'Xoán', '2011-11-02', '2022-09-12', 'Camiño Real 4', '27001', 'Lugo', 'Lugo', 'España', 'Ramón Vázquez', '644101010', 'ramon.vazquez@example.com', 'Begoña Muñoz', '644202020', 'begona.munoz@example.com', 'xoan.vazquez@example.com', NULL, 3, NULL, 0);
INSERT INTO tblAlumnos (Id, Ape, Nom, FecNac, FecMat, Dir, CP, Pob, Pro, Pais, Pai, TelPai, MailPai, Nai, TelNai, MailNai, MailAlu, Obs, Grupo, Foto, AV) VALUES (7, 'Castro Ferreño', 'María', '2011-04-23', '2022-09-12', 'Rúa da Raíña 9', '27002', 'Lugo', 'Lugo', 'España', 'Luis Castro', '655303030', NULL, 'Sonia Ferreño', '655404040', NULL, 'maria.castro@example.com', 'Delegada de clase', 3, NULL, 0);
INSERT INTO tblAlumnos (Id, Ape, Nom, FecNac, FecMat, Dir, CP, Pob, Pro, Pais, Pai, TelPai, MailPai, Nai, TelNai, MailNai, MailAlu, Obs, Grupo, Foto, AV) VALUES (8, 'Souto Peña', 'Antía', '2012-09-09', NULL, 'Rúa do Porto 2', '15401', 'Ferrol', 'A Coruña', 'España', 'Diego Souto', '666505050', NULL, 'Iria Peña', '666606060', NULL, 'antia.souto@example.com', 'Su grupo fue borrado', 99, NULL, 0);

-- Tasks. Task 4 does not count for the mark; task 8 has no dates.
INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, FecIni, FecFin, Obs, Nota, Fin) VALUES (1, 'Examen tema 1', 1, 1, 1, 1, '2024-10-01', '2024-10-01', 'Temas 1 y 2', 1, 1);
INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, FecIni, FecFin, Obs, Nota, Fin) VALUES (2, 'Deberes tema 1', 2, 1, 1, 1, '2024-10-05', '2024-10-12', NULL, 1, 1);
INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, FecIni, FecFin, Obs, Nota, Fin) VALUES (3, 'Proyecto huerto', 3, 1, 1, 1, '2024-10-10', '2024-11-30', 'Por parejas', 1, 0);
INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, FecIni, FecFin, Obs, Nota, Fin) VALUES (4, 'Dictado', 1, 1, 1, 1, '2024-10-15', '2024-10-15', NULL, 0, 0);
INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, FecIni, FecFin, Obs, Nota, Fin) VALUES (5, 'Examen fracciones', 1, 1, 2, 2, '2024-10-20', '2024-10-20', NULL, 1, 1);
INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, FecIni, FecFin, Obs, Nota, Fin) VALUES (6, 'Examen tema 3', 1, 2, 1, 1, '2025-01-20', '2025-01-20', NULL, 1, 0);
INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, FecIni, FecFin, Obs, Nota, Fin) VALUES (7, 'Examen de problemas', 2, 1, 2, 2, '2024-11-04', '2024-11-08', 'Para casa', 1, 0);
INSERT INTO tblTareas (Id, Des, IdTip, IdEva, IdMat, IdGru, FecIni, FecFin, Obs, Nota, Fin) VALUES (8, 'Lectura', 1, 1, 3, 3, NULL, NULL, NULL, 1, 0);

-- Task marks. Adjusted marks (Nota/Max*10): task 1: 7.5, 4.9995, 0; task 2 (Max 5): 9.5, 5.995, 12 (above the maximum);
-- task 3 (Max 100): 8.5, 4.5; task 5: 6.5, 9.5; task 6: 8, 5; task 7 (Max 5): 4, 10; task 8: 7 and 3 (student of the deleted group).
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (1, 1, 1, 7.5, 'Buen trabajo');
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (2, 1, 2, 4.9995, NULL);
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (3, 1, 3, 0, 'No se presenta');
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (4, 2, 1, 4.75, NULL);
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (5, 2, 2, 2.9975, NULL);
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (6, 2, 3, 6, 'Nota por encima del máximo');
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (7, 3, 1, 85, 'Muy completo');
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (8, 3, 2, 45, NULL);
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (9, 4, 1, 3, 'No computa');
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (10, 5, 4, 6.5, NULL);
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (11, 5, 5, 9.5, 'Excelente');
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (12, 6, 1, 8, NULL);
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (13, 6, 2, 5, NULL);
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (14, 7, 4, 2, NULL);
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (15, 7, 5, 5, NULL);
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (16, 8, 6, 7, NULL);
INSERT INTO tblNotas (Id, IdTarea, IdAlu, Nota, Obs) VALUES (17, 8, 8, 3, 'Alumna sin grupo');

-- Evaluation marks with recoveries.
INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota, Obs, Recuperar, NotaRec, Recuperado, ObsRec) VALUES (1, 1, 1, 1, 7, 'Bien', 0, NULL, 0, NULL);
INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota, Obs, Recuperar, NotaRec, Recuperado, ObsRec) VALUES (2, 2, 1, 1, 8.5, NULL, 0, NULL, 0, NULL);
INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota, Obs, Recuperar, NotaRec, Recuperado, ObsRec) VALUES (3, 1, 1, 2, 4, 'Debe esforzarse', 1, 6, 1, 'Aprobada en enero');
INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota, Obs, Recuperar, NotaRec, Recuperado, ObsRec) VALUES (4, 1, 1, 3, 0, NULL, 1, NULL, 0, NULL);
INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota, Obs, Recuperar, NotaRec, Recuperado, ObsRec) VALUES (5, 1, 2, 4, 4.995, NULL, 1, 5, 1, 'Examen de recuperación');
INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota, Obs, Recuperar, NotaRec, Recuperado, ObsRec) VALUES (6, 1, 2, 5, 9.5, 'Sobresaliente', 0, NULL, 0, NULL);
INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota, Obs, Recuperar, NotaRec, Recuperado, ObsRec) VALUES (7, 1, 3, 6, 6.5, NULL, 0, NULL, 0, NULL);
INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota, Obs, Recuperar, NotaRec, Recuperado, ObsRec) VALUES (8, 1, 3, 8, 6, NULL, 0, NULL, 0, NULL);

-- Final marks; NotaE stays Null where there was no extraordinary exam.
INSERT INTO tblNotasFinal (Id, IdMat, IdAlu, NotaO, NotaE, Obs) VALUES (1, 1, 1, 8, NULL, 'Promociona');
INSERT INTO tblNotasFinal (Id, IdMat, IdAlu, NotaO, NotaE, Obs) VALUES (2, 1, 2, 4, 5.5, 'Aprueba en septiembre');
INSERT INTO tblNotasFinal (Id, IdMat, IdAlu, NotaO, NotaE, Obs) VALUES (3, 1, 3, 3, 2, NULL);
INSERT INTO tblNotasFinal (Id, IdMat, IdAlu, NotaO, NotaE, Obs) VALUES (4, 2, 4, 6.5, NULL, NULL);
INSERT INTO tblNotasFinal (Id, IdMat, IdAlu, NotaO, NotaE, Obs) VALUES (5, 2, 5, 10, NULL, 'Matrícula');
INSERT INTO tblNotasFinal (Id, IdMat, IdAlu, NotaO, NotaE, Obs) VALUES (6, 3, 6, 5, NULL, NULL);

-- Rubric activities: three for task 3 (one without values), one for task 1.
INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Cri, Por, Max) VALUES (1, 3, '1', 'Planificación', 'Presenta un plan con fechas', 40, 4);
INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Cri, Por, Max) VALUES (2, 3, '2', 'Ejecución', 'Cuida el huerto cada semana', 60, 10);
INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Cri, Por, Max) VALUES (3, 1, '1', 'Comprensión', 'Responde con sus palabras', 100, 10);
INSERT INTO tblTareasRubrica (Id, IdTarea, Num, Des, Cri, Por, Max) VALUES (4, 3, '10', 'Presentación', 'Expone ante la clase', 0, 5);

-- Rubric values of the marks 7 and 8 (task 3).
INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (1, 7, 1, 4, 4);
INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (2, 7, 2, 8, 10);
INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (3, 8, 1, 2, 4);
INSERT INTO tblNotasRubrica (Id, IdNota, IdActividad, Valor, Max) VALUES (4, 8, 2, 4, 10);

INSERT INTO tblTareasRubricaValoracion (Id) VALUES (1);
INSERT INTO tblTareasRubricaValoracion (Id) VALUES (2);

-- Incidents: one of a student of the deleted group, one without date.
INSERT INTO tblIncidencias (Id, IdAlu, Asunto, Fec, Hechos, Resolucion, Listo) VALUES (1, 1, 'Retraso', '2024-10-02', 'Llega tarde tres días seguidos', 'Aviso a la familia', 1);
INSERT INTO tblIncidencias (Id, IdAlu, Asunto, Fec, Hechos, Resolucion, Listo) VALUES (2, 4, 'Material', '2024-11-05', 'No trae el libro', NULL, 0);
INSERT INTO tblIncidencias (Id, IdAlu, Asunto, Fec, Hechos, Resolucion, Listo) VALUES (3, 8, 'Falta', '2024-11-10', 'Falta sin justificar', NULL, 0);
INSERT INTO tblIncidencias (Id, IdAlu, Asunto, Fec, Hechos, Resolucion, Listo) VALUES (4, 6, 'Pelea', NULL, 'Discusión en el recreo', 'Mediación', 0);

-- Class diary: entry 5 points to the deleted group 99.
INSERT INTO tblDiarioClase (Id, Dia, IdGrupo, IdMat, Des, Listo) VALUES (1, '2024-10-14', 1, 1, 'Lectura del tema 1', 4);
INSERT INTO tblDiarioClase (Id, Dia, IdGrupo, IdMat, Des, Listo) VALUES (2, '2024-10-14', 2, 2, 'Fracciones equivalentes', 2);
INSERT INTO tblDiarioClase (Id, Dia, IdGrupo, IdMat, Des, Listo) VALUES (3, '2024-10-15', 1, 1, NULL, 0);
INSERT INTO tblDiarioClase (Id, Dia, IdGrupo, IdMat, Des, Listo) VALUES (4, '2024-10-15', 3, 3, 'Lectura sobre plantas', 1);
INSERT INTO tblDiarioClase (Id, Dia, IdGrupo, IdMat, Des, Listo) VALUES (5, '2024-10-16', 99, 1, 'Lectura en grupo borrado', 0);
INSERT INTO tblDiarioClase (Id, Dia, IdGrupo, IdMat, Des, Listo) VALUES (6, '2024-10-16', 1, 1, 'Dictado y lectura', 2);

-- Timetable: two days, three hours, six sessions (one with IdMat 0, one with IdMat Null).
INSERT INTO tblHorarioDias (Id, Des, Orden) VALUES (1, 'Lunes', 1);
INSERT INTO tblHorarioDias (Id, Des, Orden) VALUES (2, 'Martes', 2);

INSERT INTO tblHorarioHoras (Id, Ini, Fin, Orden) VALUES (1, '09:00', '09:50', 1);
INSERT INTO tblHorarioHoras (Id, Ini, Fin, Orden) VALUES (2, '09:50', '10:40', 2);
INSERT INTO tblHorarioHoras (Id, Ini, Fin, Orden) VALUES (3, '11:10', '12:00', 3);

INSERT INTO tblHorarioSesiones (Id, OrdenDia, OrdenHora, IdMat, IdGru, Des, Color) VALUES (1, 1, 1, 1, 1, 'Lengua 5A', 16777088);
INSERT INTO tblHorarioSesiones (Id, OrdenDia, OrdenHora, IdMat, IdGru, Des, Color) VALUES (2, 1, 2, 2, 2, 'Mates 1B', 8454016);
INSERT INTO tblHorarioSesiones (Id, OrdenDia, OrdenHora, IdMat, IdGru, Des, Color) VALUES (3, 1, 3, 0, NULL, 'Recreo', 12632256);
INSERT INTO tblHorarioSesiones (Id, OrdenDia, OrdenHora, IdMat, IdGru, Des, Color) VALUES (4, 2, 1, 3, 3, 'Ciencias 2C', 8421631);
INSERT INTO tblHorarioSesiones (Id, OrdenDia, OrdenHora, IdMat, IdGru, Des, Color) VALUES (5, 2, 2, 1, 1, 'Lengua 5A', 16777088);
INSERT INTO tblHorarioSesiones (Id, OrdenDia, OrdenHora, IdMat, IdGru, Des, Color) VALUES (6, 2, 3, NULL, NULL, 'Guardia', 12632256);

-- Tutoring appointments: 4 belongs to a student who is gone, 5 lies in a later year.
INSERT INTO tblTutoriaCitas (Id, IdAlu, Fec, Des, Asu, Res, Listo, Proceso) VALUES (1, 1, '2024-10-20 17:00:00', 'Reunión inicial', 'Presentación del curso', 'Familia informada', 1, 0);
INSERT INTO tblTutoriaCitas (Id, IdAlu, Fec, Des, Asu, Res, Listo, Proceso) VALUES (2, 2, '2024-11-12 16:30:00', 'Seguimiento', 'Bajada de notas', NULL, 0, 1);
INSERT INTO tblTutoriaCitas (Id, IdAlu, Fec, Des, Asu, Res, Listo, Proceso) VALUES (3, 3, '2025-01-15 17:00:00', 'Entrega de notas', 'Primera evaluación', NULL, 0, 0);
INSERT INTO tblTutoriaCitas (Id, IdAlu, Fec, Des, Asu, Res, Listo, Proceso) VALUES (4, 50, '2024-12-02 10:00:00', 'Antigua alumna', NULL, NULL, 0, 0);
INSERT INTO tblTutoriaCitas (Id, IdAlu, Fec, Des, Asu, Res, Listo, Proceso) VALUES (5, 4, '2026-02-10 10:00:00', 'Cita futura', 'Orientación', NULL, 0, 0);

-- Tutoring subjects and the marks of the tutored group (group 1) in two evaluations.
INSERT INTO tblTutoriaMaterias (Id, Cod, Des, Prof, Obs) VALUES (1, 'LEN', 'Lengua Castelá', 'Carmen Rey', NULL);
INSERT INTO tblTutoriaMaterias (Id, Cod, Des, Prof, Obs) VALUES (2, 'MAT', 'Matemáticas', 'Xosé Lema', 'Refuerzo los martes');
INSERT INTO tblTutoriaMaterias (Id, Cod, Des, Prof, Obs) VALUES (3, 'ING', 'Inglés', 'Laura Díaz', NULL);
INSERT INTO tblTutoriaMaterias (Id, Cod, Des, Prof, Obs) VALUES (4, 'EF', 'Educación Física', 'Óscar Ríos', NULL);

INSERT INTO tblTutoriaNotas (Id, IdAlu, IdEval, IdMat, Nota) VALUES (1, 1, 1, 1, 7.5);
INSERT INTO tblTutoriaNotas (Id, IdAlu, IdEval, IdMat, Nota) VALUES (2, 1, 1, 2, 4.5);
INSERT INTO tblTutoriaNotas (Id, IdAlu, IdEval, IdMat, Nota) VALUES (3, 1, 1, 3, 9);
INSERT INTO tblTutoriaNotas (Id, IdAlu, IdEval, IdMat, Nota) VALUES (4, 2, 1, 1, 5);
INSERT INTO tblTutoriaNotas (Id, IdAlu, IdEval, IdMat, Nota) VALUES (5, 2, 1, 2, 6.25);
INSERT INTO tblTutoriaNotas (Id, IdAlu, IdEval, IdMat, Nota) VALUES (6, 3, 1, 1, 3);
INSERT INTO tblTutoriaNotas (Id, IdAlu, IdEval, IdMat, Nota) VALUES (7, 1, 2, 1, 8);
INSERT INTO tblTutoriaNotas (Id, IdAlu, IdEval, IdMat, Nota) VALUES (8, 2, 2, 2, 4.995);
INSERT INTO tblTutoriaNotas (Id, IdAlu, IdEval, IdMat, Nota) VALUES (9, 3, 2, 3, 6);
