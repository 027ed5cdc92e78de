#include "students/PrintStaging.h"

#include "db/Connection.h"
#include "db/Recordset.h"
#include "db/Schema.h"
#include "db/Transaction.h"

#include <QFileInfo>

namespace staging {

namespace {

// The next key of the staged task types, read back from the file.
qint32 fSeguinteTarea(const db::ConnectionPtr& cn)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT Id FROM tblFichaTareas ORDER BY Id"), cn);
    if (rs.Eof())
        return 1;
    rs.MoveLast();
    return rs.Value(QStringLiteral("Id")).toInt() + 1;
}

// Empties a table and opens it to add rows.
void abre(db::Recordset& rs, const QString& table, const db::ConnectionPtr& cn)
{
    cn->Execute(QStringLiteral("DELETE * FROM ") + table);
    rs.Open(QStringLiteral("SELECT * From ") + table, cn);
}

db::ConnectionPtr open(const QString& path)
{
    auto cn = db::Connection::Open(path);
    if (db::Schema::UpdatePrint(*cn)) {
        cn->Close();
        cn = db::Connection::Open(path);
    }
    return cn;
}

} // namespace

QString defaultPath()
{
    return QStringLiteral("Impresion/Impresion.mdb");
}

QString cell(const QString& text)
{
    return QString(text).replace(u',', u'.');
}

void stage(const standing::Record& record, const QString& path)
{
    const db::ConnectionPtr cn = open(path);
    db::Transaction tx(*cn);

    db::Recordset rs;
    abre(rs, QStringLiteral("tblFichaAlumno"), cn);
    rs.AddNew();
    rs.SetValue(QStringLiteral("Id"), record.id);
    rs.SetValue(QStringLiteral("Nom"), record.nom);
    rs.SetValue(QStringLiteral("Grupo"), record.grupo);
    rs.SetValue(QStringLiteral("Mail"), record.mail);
    rs.Update();

    abre(rs, QStringLiteral("tblFichaNF"), cn);
    for (const standing::Final& f : record.finales) {
        rs.AddNew();
        rs.SetValue(QStringLiteral("IdAlu"), record.id);
        rs.SetValue(QStringLiteral("Mat"), f.mat);
        rs.SetValue(QStringLiteral("Ptos"), cell(f.ptos));
        rs.SetValue(QStringLiteral("NM"), cell(f.nota));
        rs.SetValue(QStringLiteral("NFO"), cell(f.nfo));
        rs.SetValue(QStringLiteral("NFE"), cell(f.nfe));
        rs.Update();
    }

    db::Recordset aval;
    db::Recordset tareas;
    db::Recordset detalle;
    abre(aval, QStringLiteral("tblFichaAval"), cn);
    abre(tareas, QStringLiteral("tblFichaTareas"), cn);
    abre(detalle, QStringLiteral("tblFichaTareasDetalle"), cn);
    int fila = 0;
    for (const standing::Record::Aval& a : record.avals) {
        aval.AddNew();
        aval.SetValue(QStringLiteral("Id"), ++fila);
        aval.SetValue(QStringLiteral("IdAval"), a.eval.idEva);
        aval.SetValue(QStringLiteral("DesAval"), a.eval.eval);
        aval.SetValue(QStringLiteral("IdMat"), a.eval.idMat);
        aval.SetValue(QStringLiteral("DesMat"), a.eval.mat);
        aval.SetValue(QStringLiteral("Ptos"), cell(a.eval.ptos));
        aval.SetValue(QStringLiteral("Nota"), cell(a.eval.nota));
        aval.Update();
        for (const standing::Record::TipoTareas& t : a.tipos) {
            const qint32 id = fSeguinteTarea(cn);
            tareas.AddNew();
            tareas.SetValue(QStringLiteral("Id"), id);
            tareas.SetValue(QStringLiteral("IdAval"), a.eval.idEva);
            tareas.SetValue(QStringLiteral("IdFila"), fila);
            tareas.SetValue(QStringLiteral("IdTipo"), t.tipo.idTip);
            tareas.SetValue(QStringLiteral("DesTipo"), t.tipo.tarea);
            tareas.SetValue(QStringLiteral("NM"), cell(t.tipo.media));
            tareas.SetValue(QStringLiteral("Valor"), cell(t.tipo.valor));
            tareas.SetValue(QStringLiteral("Ptos"), cell(t.tipo.ptos));
            tareas.Update();
            for (const standing::Tarea& d : t.tareas) {
                detalle.AddNew();
                detalle.SetValue(QStringLiteral("IdTarea"), id);
                detalle.SetValue(QStringLiteral("DesTarea"), d.tarea);
                detalle.SetValue(QStringLiteral("Nota"), cell(d.nota));
                detalle.SetValue(QStringLiteral("Obs"), d.obs);
                detalle.Update();
            }
        }
    }
    aval.Close();
    tareas.Close();
    detalle.Close();
    rs.Close();
    tx.commit();
    cn->Close();
}

} // namespace staging
