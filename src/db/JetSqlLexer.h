#pragma once
// Internal to the dialect layer (JetSql): keywords, tokens and the helpers
// that write SQLite text. Tokens are views into the statement's text, and
// keywords are recognised without building upper-case copies, so that a
// translation allocates almost nothing besides its output.
#include <QString>
#include <QStringView>
#include <QVarLengthArray>

namespace db::jet {

enum class Kw : quint8 {
    None,
    // words that end an expression or a table reference
    Select,
    From,
    Where,
    Group,
    By,
    Having,
    Order,
    Asc,
    Desc,
    As,
    Inner,
    Left,
    Right,
    Outer,
    Join,
    On,
    And,
    Or,
    Not,
    Like,
    Between,
    Is,
    In,
    Union,
    Pivot,
    Transform,
    Set,
    Values,
    Into,
    Mod,
    Xor,
    Distinct,
    DistinctRow,
    Top,
    All,
    // statement starts and constants, which are not reserved as names
    Insert,
    Update,
    Delete,
    True,
    False,
    Yes,
    No,
    Null
};

constexpr Kw kFirstUnreserved = Kw::Insert;

enum class Tok : quint8 { Ident, Bracket, String, Date, Number, Op, End };

struct Token {
    Tok type = Tok::End;
    Kw kw = Kw::None;
    bool escapedQuote = false; // a String holding doubled quotes
    QChar quote;
    QStringView text; // the word, the content between delimiters, the number or the operator
    int pos = 0;
};

using Tokens = QVarLengthArray<Token, 256>;

// The RuntimeError of a text that is not a statement of the dialect.
[[noreturn]] void syntaxError(const QString& what, int pos);

// Upper-cases an ASCII word into buf; false for anything longer or not ASCII.
bool asciiUpper(QStringView w, char* buf, int size);
Kw keywordOf(QStringView w);
void tokenize(QStringView s, Tokens& out);

// ---------------------------------------------------------------- output

// "name", with quotes inside doubled.
void appendIdent(QString& out, QStringView name);
bool isComparison(const Token& t);
// The text of a string token, with its doubled quotes made single again.
QString stringContent(const Token& t);
// 'text', with quotes inside doubled.
void appendString(QString& out, const Token& t);
// #yyyy/MM/dd#, #M/d/yyyy# (the engine's own order), with an optional time,
// as ISO text.
void appendDate(QString& out, QStringView text, int pos);

// Added to text ORDER BY terms and text comparisons: the database's order.
inline const QLatin1String kCollate(" COLLATE jet_es");
// Added to text grouping terms: texts that differ only in case are one group.
inline const QLatin1String kGroupCollate(" COLLATE jet_nocase");

} // namespace db::jet
