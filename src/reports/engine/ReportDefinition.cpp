#include "reports/engine/ReportDefinition.h"

#include "reports/engine/ReportErrors.h"
#include "vb/RuntimeError.h"

#include <QRegularExpression>

namespace reports {

namespace {

[[noreturn]] void invalid(const QString& name, int line, const QString& why)
{
    throw RuntimeError(
        InvalidFile,
        QStringLiteral("El archivo de reporte %1.rpt no es válido (línea %2): %3").arg(name).arg(line).arg(why));
}

FieldFormat parseFormat(const QString& word, const QString& name, int line)
{
    static const QHash<QString, FieldFormat> formats = {
        {QStringLiteral("auto"), FieldFormat::Auto},       {QStringLiteral("text"), FieldFormat::Text},
        {QStringLiteral("mark"), FieldFormat::Mark},       {QStringLiteral("number"), FieldFormat::Number},
        {QStringLiteral("decimal"), FieldFormat::Decimal}, {QStringLiteral("integer"), FieldFormat::Integer},
        {QStringLiteral("date"), FieldFormat::Date},       {QStringLiteral("yesno"), FieldFormat::YesNo},
    };
    const auto it = formats.constFind(word.trimmed().toLower());
    if (it == formats.cend())
        invalid(name, line, QStringLiteral("formato de campo desconocido \"%1\"").arg(word.trimmed()));
    return *it;
}

QStringList splitList(const QString& value)
{
    QStringList items;
    for (const QString& item : value.split(u',', Qt::SkipEmptyParts)) {
        if (const QString t = item.trimmed(); !t.isEmpty())
            items.append(t);
    }
    return items;
}

// "groups.IdAval = IdAval": the parent and its field, then the child's field.
Nesting parseNesting(const QString& child, const QString& value, const QString& name, int line)
{
    static const QRegularExpression re(QStringLiteral("^\\s*(\\w+)\\.(\\w+)\\s*=\\s*(\\w+)\\s*$"));
    const QRegularExpressionMatch m = re.match(value);
    if (!m.hasMatch())
        invalid(name, line, QStringLiteral("se esperaba \"padre.campo = campo\" en nest.%1").arg(child));
    return Nesting{child, m.captured(1), m.captured(2), m.captured(3)};
}

void setReportKey(ReportDefinition& def, const QString& key, const QString& value, int line)
{
    const QString k = key.toLower();
    if (k == QLatin1String("title"))
        def.title = value;
    else if (k == QLatin1String("subtitle"))
        def.subtitle = value;
    else if (k == QLatin1String("info"))
        def.info = value;
    else if (k == QLatin1String("parameters"))
        def.parameters = splitList(value);
    else if (k == QLatin1String("data"))
        def.data = value;
    else if (k == QLatin1String("orientation")) {
        if (value.compare(QLatin1String("landscape"), Qt::CaseInsensitive) == 0)
            def.landscape = true;
        else if (value.compare(QLatin1String("portrait"), Qt::CaseInsensitive) == 0)
            def.landscape = false;
        else
            invalid(def.name, line, QStringLiteral("orientación desconocida \"%1\"").arg(value));
    } else if (k == QLatin1String("group"))
        def.group = splitList(value);
    else if (k.startsWith(QLatin1String("nest.")))
        def.nestings.append(parseNesting(key.mid(5), value, def.name, line));
    else if (k == QLatin1String("pivot.rows"))
        def.pivot.rows = value;
    else if (k == QLatin1String("pivot.columns"))
        def.pivot.columns = value;
    else if (k == QLatin1String("pivot.value"))
        def.pivot.value = value;
    else if (k == QLatin1String("pivot.headings"))
        def.pivot.headings = value;
    else
        invalid(def.name, line, QStringLiteral("clave desconocida \"%1\"").arg(key));
}

} // namespace

FieldFormat ReportDefinition::format(const QString& field) const
{
    return formats.value(field.toLower(), FieldFormat::Auto);
}

QString ReportDefinition::statement(const QString& selection) const
{
    QStringList conditions;
    if (!where.trimmed().isEmpty())
        conditions.append(u'(' + where.trimmed() + u')');
    if (!selection.trimmed().isEmpty())
        conditions.append(u'(' + selection.trimmed() + u')');
    QString sql = query.trimmed();
    if (!conditions.isEmpty())
        sql += QStringLiteral(" WHERE ") + conditions.join(QStringLiteral(" AND "));
    if (!tail.trimmed().isEmpty())
        sql += u' ' + tail.trimmed();
    return sql;
}

ReportDefinition ReportDefinition::parse(const QString& text, const QString& name)
{
    ReportDefinition def;
    def.name = name;
    def.data = QStringLiteral("year");

    static const QRegularExpression sectionRe(QStringLiteral("^\\[(\\w+)(?:\\s+(\\w+))?\\]\\s*$"));
    enum class Section { None, Report, Fields, Query, Where, Tail, NamedQuery };
    Section section = Section::None;
    QString* raw = nullptr; // where the lines of a raw section go
    bool sawQuery = false;
    bool sawTemplate = false;

    const QStringList lines = QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")).split(u'\n');
    for (int i = 0; i < lines.size(); ++i) {
        const QString& line = lines[i];
        const int lineNo = i + 1;
        const QRegularExpressionMatch m = sectionRe.match(line.trimmed());
        if (m.hasMatch() && !line.startsWith(u' ')) {
            const QString word = m.captured(1).toLower();
            const QString arg = m.captured(2);
            raw = nullptr;
            if (word == QLatin1String("template")) {
                def.templateText = lines.mid(i + 1).join(u'\n');
                sawTemplate = true;
                break;
            }
            if (word == QLatin1String("report"))
                section = Section::Report;
            else if (word == QLatin1String("fields"))
                section = Section::Fields;
            else if (word == QLatin1String("query") && arg.isEmpty()) {
                section = Section::Query;
                raw = &def.query;
                sawQuery = true;
            } else if (word == QLatin1String("query")) {
                for (const NamedQuery& q : def.queries) {
                    if (q.name.compare(arg, Qt::CaseInsensitive) == 0)
                        invalid(name, lineNo, QStringLiteral("la consulta \"%1\" está repetida").arg(arg));
                }
                section = Section::NamedQuery;
                def.queries.append(NamedQuery{arg, QString()});
                raw = &def.queries.last().sql;
            } else if (word == QLatin1String("where")) {
                section = Section::Where;
                raw = &def.where;
            } else if (word == QLatin1String("tail")) {
                section = Section::Tail;
                raw = &def.tail;
            } else
                invalid(name, lineNo, QStringLiteral("sección desconocida [%1]").arg(m.captured(1)));
            continue;
        }
        if (raw) {
            if (!line.trimmed().startsWith(QLatin1String("--")))
                raw->append(line).append(u'\n');
            continue;
        }
        const QString t = line.trimmed();
        if (t.isEmpty() || t.startsWith(u'#'))
            continue;
        if (section != Section::Report && section != Section::Fields)
            invalid(name, lineNo, QStringLiteral("texto fuera de una sección"));
        const int eq = t.indexOf(u'=');
        if (eq <= 0)
            invalid(name, lineNo, QStringLiteral("se esperaba \"clave = valor\""));
        const QString key = t.left(eq).trimmed();
        const QString value = t.mid(eq + 1).trimmed();
        if (section == Section::Report)
            setReportKey(def, key, value, lineNo);
        else
            def.formats.insert(key.toLower(), parseFormat(value, name, lineNo));
    }

    if (!sawQuery || def.query.trimmed().isEmpty())
        invalid(name, lines.size(), QStringLiteral("falta la sección [query]"));
    if (!sawTemplate)
        invalid(name, lines.size(), QStringLiteral("falta la sección [template]"));
    const auto knownSet = [&def](const QString& set) {
        if (set == QLatin1String("rows") || set == QLatin1String("groups"))
            return true;
        for (const NamedQuery& q : def.queries) {
            if (q.name == set)
                return true;
        }
        return false;
    };
    for (const Nesting& n : def.nestings) {
        if (!knownSet(n.child) || !knownSet(n.parent))
            invalid(name, lines.size(), QStringLiteral("nest.%1 nombra una consulta que no existe").arg(n.child));
    }
    if (def.pivot.isSet() && (def.pivot.columns.isEmpty() || def.pivot.value.isEmpty()))
        invalid(name, lines.size(), QStringLiteral("pivot.rows necesita pivot.columns y pivot.value"));
    if (!def.pivot.headings.isEmpty() && !knownSet(def.pivot.headings))
        invalid(name, lines.size(), QStringLiteral("pivot.headings nombra una consulta que no existe"));
    return def;
}

} // namespace reports
