// Conversions and formats of the runtime under the Spanish locale.
#include "vb/Vb.h"

#include <QDateTime>
#include <QTime>
#include <QtTest>

#include <functional>

using namespace vb;

namespace {

// Number of the RuntimeError that f throws, or 0 when it throws none.
int errorNumberOf(const std::function<void()>& f)
{
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.Number();
    }
    return 0;
}

QString errorTextOf(const std::function<void()>& f)
{
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.Description();
    }
    return {};
}

QVariant text(const char* s)
{
    return QVariant(QString::fromUtf8(s));
}

} // namespace

class TestVb : public QObject {
    Q_OBJECT

private slots:
    // IsNumeric
    void isNumericAcceptsDecimalCommaAndThousandsPoint();
    void isNumericAcceptsBlanksSignsAndExponent();
    void isNumericRejectsEmptyNullWordsAndRepeatedCommas();
    void isNumericAcceptsNumbersAndBooleansButNotDates();

    // CDbl, CSng
    void cdblReadsSpanishLocale();
    void cdblOfBooleanIsMinusOneOrZero();
    void cdblOfNullRaisesInvalidUseOfNull();
    void cdblOfWordRaisesTypeMismatch();
    void cdblOfDateIsDaySerial();
    void csngParsesTextToNearestSingle();
    void csngOutOfRangeRaisesOverflow();

    // CInt, CLng, CByte
    void cintRoundsHalfToEven();
    void cintOfTextTwelveAndAHalfGivesTwelve();
    void cintOutOfRangeRaisesOverflow();
    void clngRoundsHalfToEvenAndChecksRange();
    void cbyteRangeIsZeroTo255();

    // CStr
    void cstrOfSingleKeepsSevenDigits();
    void cstrOfSingleRoundTripsBandBounds();
    void cstrOfLargeSingleUsesExponent();
    void cstrOfDoubleKeepsFifteenDigits();
    void cstrOfIntegersAndBooleans();
    void cstrOfDatesAndTimes();
    void cstrOfNullRaises();

    // Round
    void roundIsHalfToEvenOnDecimalDigits();
    void roundOfSingleUsesItsOwnDigits();
    void roundWithNegativeDigitsRaises();

    // Format, numbers
    void formatNumberRoundsHalfAwayFromZero();
    void formatAndRoundDisagreeOnTies();
    void formatPadsDecimalsAndIntegerDigits();
    void formatBandBoundsRoundUp();
    void formatConvertsNumericText();
    void formatGroupsThousandsOnlyWhenAsked();
    void formatOptionalDecimalsKeepComma();
    void formatOfNullOrEmptyIsEmpty();
    void formatOfWordIsTheWord();

    // Format, dates
    void formatDatePatterns();
    void formatWeekdayAndMonthNames();
    void formatMinutesAfterHoursMonthsOtherwise();
    void formatDateTextAndTime();

    // IsDate, CDate
    void isDateAcceptsCalendarDates();
    void isDateRejectsImpossibleAndEmptyMasks();
    void isDateAcceptsValidTimesOnly();
    void isDateOfValuesAndNull();
    void cdateReturnsDateTimeOrBoth();
    void cdateReadsIsoText();
    void cdateRejectsOtherText();

    // Names and case
    void weekdayIsMondayFirst();
    void weekdayNameIsSpanishLowerCase();
    void monthNameIsSpanishLowerCase();
    void ucaseHandlesAccentsAndEnye();

    void errorTextsAreSpanish();
};

// ---- IsNumeric

void TestVb::isNumericAcceptsDecimalCommaAndThousandsPoint()
{
    QVERIFY(IsNumeric(text("12,5")));
    QVERIFY(IsNumeric(text("12.5")));
    QVERIFY(IsNumeric(text("1.234,5")));
    QVERIFY(IsNumeric(text(",5")));
}

void TestVb::isNumericAcceptsBlanksSignsAndExponent()
{
    QVERIFY(IsNumeric(text("  7 ")));
    QVERIFY(IsNumeric(text("-3,25")));
    QVERIFY(IsNumeric(text("+3")));
    QVERIFY(IsNumeric(text("1E+08")));
}

void TestVb::isNumericRejectsEmptyNullWordsAndRepeatedCommas()
{
    QVERIFY(!IsNumeric(text("")));
    QVERIFY(!IsNumeric(text("   ")));
    QVERIFY(!IsNumeric(QVariant()));
    QVERIFY(!IsNumeric(text("abc")));
    QVERIFY(!IsNumeric(text("1,2,3")));
    QVERIFY(!IsNumeric(text("1,2.3")));
    QVERIFY(!IsNumeric(text("-")));
    QVERIFY(!IsNumeric(text("12a")));
}

void TestVb::isNumericAcceptsNumbersAndBooleansButNotDates()
{
    QVERIFY(IsNumeric(QVariant(3)));
    QVERIFY(IsNumeric(QVariant(2.5)));
    QVERIFY(IsNumeric(QVariant(2.5f)));
    QVERIFY(IsNumeric(QVariant(true)));
    QVERIFY(!IsNumeric(QVariant(QDate(2024, 3, 5))));
}

// ---- CDbl, CSng

void TestVb::cdblReadsSpanishLocale()
{
    QCOMPARE(CDbl(text("12,5")), 12.5);
    QCOMPARE(CDbl(text("12.5")), 125.0);
    QCOMPARE(CDbl(text("1.234,5")), 1234.5);
    QCOMPARE(CDbl(text(" -0,25 ")), -0.25);
    QCOMPARE(CDbl(text("1,5E3")), 1500.0);
    QCOMPARE(CDbl(QVariant(7)), 7.0);
}

void TestVb::cdblOfBooleanIsMinusOneOrZero()
{
    QCOMPARE(CDbl(QVariant(true)), -1.0);
    QCOMPARE(CDbl(QVariant(false)), 0.0);
}

void TestVb::cdblOfNullRaisesInvalidUseOfNull()
{
    QCOMPARE(errorNumberOf([] { CDbl(QVariant()); }), 94);
    QCOMPARE(errorTextOf([] { CDbl(QVariant()); }), QStringLiteral("Uso no válido de Null"));
}

void TestVb::cdblOfWordRaisesTypeMismatch()
{
    QCOMPARE(errorNumberOf([] { CDbl(text("abc")); }), 13);
    QCOMPARE(errorNumberOf([] { CDbl(text("")); }), 13);
    QCOMPARE(errorTextOf([] { CDbl(text("1,2,3")); }), QStringLiteral("No coinciden los tipos"));
}

void TestVb::cdblOfDateIsDaySerial()
{
    QCOMPARE(CDbl(QVariant(QDate(1900, 1, 1))), 2.0);
    QCOMPARE(CDbl(QVariant(QDateTime(QDate(2024, 3, 5), QTime(6, 0)))), 45356.25);
}

void TestVb::csngParsesTextToNearestSingle()
{
    QCOMPARE(CSng(text("7,3")), 7.3f);
    QCOMPARE(CSng(text("4,9995")), 4.9995f);
    QCOMPARE(CSng(QVariant(0.5)), 0.5f);
}

void TestVb::csngOutOfRangeRaisesOverflow()
{
    QCOMPARE(errorNumberOf([] { CSng(QVariant(1e39)); }), 6);
    QCOMPARE(errorNumberOf([] { CSng(text("1E39")); }), 6);
}

// ---- CInt, CLng, CByte

void TestVb::cintRoundsHalfToEven()
{
    QCOMPARE(CInt(QVariant(13.5)), qint16(14));
    QCOMPARE(CInt(QVariant(12.5)), qint16(12));
    QCOMPARE(CInt(QVariant(-2.5)), qint16(-2));
    QCOMPARE(CInt(QVariant(-3.5)), qint16(-4));
    QCOMPARE(CInt(QVariant(2.51)), qint16(3));
    QCOMPARE(CInt(QVariant(true)), qint16(-1));
}

void TestVb::cintOfTextTwelveAndAHalfGivesTwelve()
{
    QCOMPARE(CInt(text("12,5")), qint16(12));
    QCOMPARE(CInt(text("12.5")), qint16(125));
}

void TestVb::cintOutOfRangeRaisesOverflow()
{
    QCOMPARE(CInt(QVariant(32767)), qint16(32767));
    QCOMPARE(CInt(QVariant(-32768.5)), qint16(-32768));
    QCOMPARE(errorNumberOf([] { CInt(QVariant(32768)); }), 6);
    QCOMPARE(errorNumberOf([] { CInt(QVariant(-32769)); }), 6);
    QCOMPARE(errorTextOf([] { CInt(QVariant(40000)); }), QStringLiteral("Desbordamiento"));
    QCOMPARE(errorNumberOf([] { CInt(QVariant()); }), 94);
}

void TestVb::clngRoundsHalfToEvenAndChecksRange()
{
    QCOMPARE(CLng(text("100.000")), qint32(100000));
    QCOMPARE(CLng(QVariant(0.5)), qint32(0));
    QCOMPARE(CLng(QVariant(1.5)), qint32(2));
    QCOMPARE(errorNumberOf([] { CLng(QVariant(2147483648.0)); }), 6);
}

void TestVb::cbyteRangeIsZeroTo255()
{
    QCOMPARE(CByte(QVariant(255)), quint8(255));
    QCOMPARE(CByte(QVariant(-0.5)), quint8(0));
    QCOMPARE(errorNumberOf([] { CByte(QVariant(-1)); }), 6);
    QCOMPARE(errorNumberOf([] { CByte(QVariant(256)); }), 6);
}

// ---- CStr

void TestVb::cstrOfSingleKeepsSevenDigits()
{
    QCOMPARE(CStr(QVariant(CSng(text("7,3")))), QStringLiteral("7,3"));
    QCOMPARE(CStr(QVariant(1.0f / 3)), QStringLiteral("0,3333333"));
    QCOMPARE(CStr(QVariant(12.0f)), QStringLiteral("12"));
    QCOMPARE(CStr(QVariant(-0.5f)), QStringLiteral("-0,5"));
    QCOMPARE(CStr(QVariant(1234567.0f)), QStringLiteral("1234567"));
}

void TestVb::cstrOfSingleRoundTripsBandBounds()
{
    QCOMPARE(CStr(QVariant(CSng(text("4,9995")))), QStringLiteral("4,9995"));
    QCOMPARE(CStr(QVariant(CSng(text("5,995")))), QStringLiteral("5,995"));
}

void TestVb::cstrOfLargeSingleUsesExponent()
{
    QCOMPARE(CStr(QVariant(100000000.0f)), QStringLiteral("1E+08"));
    QCOMPARE(CStr(QVariant(12345678.0f)), QStringLiteral("1,234568E+07"));
    QCOMPARE(CStr(QVariant(0.00001f)), QStringLiteral("1E-05"));
}

void TestVb::cstrOfDoubleKeepsFifteenDigits()
{
    QCOMPARE(CStr(QVariant(1.0 / 3)), QStringLiteral("0,333333333333333"));
    QCOMPARE(CStr(QVariant(0.1 + 0.2)), QStringLiteral("0,3"));
    QCOMPARE(CStr(QVariant(1e15)), QStringLiteral("1E+15"));
    QCOMPARE(CStr(QVariant(100000000.0)), QStringLiteral("100000000"));
    QCOMPARE(CStr(QVariant(-0.0)), QStringLiteral("0"));
}

void TestVb::cstrOfIntegersAndBooleans()
{
    QCOMPARE(CStr(QVariant(-42)), QStringLiteral("-42"));
    QCOMPARE(CStr(QVariant(qint64(1234567890123))), QStringLiteral("1234567890123"));
    QCOMPARE(CStr(QVariant::fromValue(quint8(7))), QStringLiteral("7"));
    QCOMPARE(CStr(QVariant(true)), QStringLiteral("Verdadero"));
    QCOMPARE(CStr(QVariant(false)), QStringLiteral("Falso"));
    QCOMPARE(CStr(text("tal cual ")), QStringLiteral("tal cual "));
}

void TestVb::cstrOfDatesAndTimes()
{
    QCOMPARE(CStr(QVariant(QDate(2024, 3, 5))), QStringLiteral("05/03/2024"));
    QCOMPARE(CStr(QVariant(QTime(8, 5))), QStringLiteral("08:05:00"));
    QCOMPARE(CStr(QVariant(QDateTime(QDate(2024, 3, 5), QTime(14, 30, 15)))), QStringLiteral("05/03/2024 14:30:15"));
    QCOMPARE(CStr(QVariant(QDateTime(QDate(2024, 3, 5), QTime(0, 0)))), QStringLiteral("05/03/2024"));
}

void TestVb::cstrOfNullRaises()
{
    QCOMPARE(errorNumberOf([] { CStr(QVariant()); }), 94);
}

// ---- Round

void TestVb::roundIsHalfToEvenOnDecimalDigits()
{
    QCOMPARE(Round(8.125, 2), 8.12);
    QCOMPARE(Round(8.135, 2), 8.14);
    QCOMPARE(Round(2.5), 2.0);
    QCOMPARE(Round(3.5), 4.0);
    QCOMPARE(Round(0.5), 0.0);
    QCOMPARE(Round(-2.5), -2.0);
    QCOMPARE(Round(2.675, 2), 2.68);
    QCOMPARE(Round(9.995, 2), 10.0);
    QCOMPARE(Round(8.1251, 2), 8.13);
    QCOMPARE(Round(1234.5678, 1), 1234.6);
    QCOMPARE(Round(0.004, 2), 0.0);
    QCOMPARE(Round(7, 1), 7.0);
}

void TestVb::roundOfSingleUsesItsOwnDigits()
{
    // 2.675f is 2.67499995... in binary; as written it is a tie and goes to the even 8.
    QCOMPARE(Round(2.675f, 2), 2.68f);
    QCOMPARE(Round(CSng(text("8,125")), 2), 8.12f);
}

void TestVb::roundWithNegativeDigitsRaises()
{
    QCOMPARE(errorNumberOf([] { Round(1.5, -1); }), 5);
}

// ---- Format, numbers

void TestVb::formatNumberRoundsHalfAwayFromZero()
{
    QCOMPARE(Format(QVariant(2.675), QStringLiteral("##0.00")), QStringLiteral("2,68"));
    QCOMPARE(Format(QVariant(0.125), QStringLiteral("##0.0")), QStringLiteral("0,1"));
    QCOMPARE(Format(QVariant(0.25), QStringLiteral("##0.0")), QStringLiteral("0,3"));
    QCOMPARE(Format(QVariant(-1.005), QStringLiteral("#0.00")), QStringLiteral("-1,01"));
    QCOMPARE(Format(QVariant(2.5), QStringLiteral("0")), QStringLiteral("3"));
    QCOMPARE(Format(QVariant(-2.5), QStringLiteral("0")), QStringLiteral("-3"));
}

void TestVb::formatAndRoundDisagreeOnTies()
{
    QCOMPARE(Format(QVariant(8.125), QStringLiteral("##0.00")), QStringLiteral("8,13"));
    QCOMPARE(Round(8.125, 2), 8.12);
    QCOMPARE(Format(QVariant(6.5), QStringLiteral("0")), QStringLiteral("7"));
    QCOMPARE(Round(6.5), 6.0);
}

void TestVb::formatPadsDecimalsAndIntegerDigits()
{
    QCOMPARE(Format(QVariant(7), QStringLiteral("##0.00")), QStringLiteral("7,00"));
    QCOMPARE(Format(QVariant(0.5), QStringLiteral("##0.00")), QStringLiteral("0,50"));
    QCOMPARE(Format(QVariant(0.5), QStringLiteral("#.00")), QStringLiteral(",50"));
    QCOMPARE(Format(QVariant(123.456), QStringLiteral("0.00")), QStringLiteral("123,46"));
    QCOMPARE(Format(QVariant(5), QStringLiteral("000")), QStringLiteral("005"));
    QCOMPARE(Format(QVariant(-0.001), QStringLiteral("0.00")), QStringLiteral("0,00"));
    QCOMPARE(Format(QVariant(7.3f), QStringLiteral("##0.0")), QStringLiteral("7,3"));
}

void TestVb::formatBandBoundsRoundUp()
{
    QCOMPARE(Format(QVariant(4.9995), QStringLiteral("##0.00")), QStringLiteral("5,00"));
    QCOMPARE(Format(QVariant(5.995), QStringLiteral("##0.00")), QStringLiteral("6,00"));
    QCOMPARE(Format(QVariant(CSng(text("4,9995"))), QStringLiteral("##0.00")), QStringLiteral("5,00"));
    QCOMPARE(Format(QVariant(4.994), QStringLiteral("##0.00")), QStringLiteral("4,99"));
}

void TestVb::formatConvertsNumericText()
{
    QCOMPARE(Format(text("12,5"), QStringLiteral("##0.00")), QStringLiteral("12,50"));
    QCOMPARE(Format(text("1.234,567"), QStringLiteral("0.00")), QStringLiteral("1234,57"));
}

void TestVb::formatGroupsThousandsOnlyWhenAsked()
{
    QCOMPARE(Format(QVariant(1234567.891), QStringLiteral("0.00")), QStringLiteral("1234567,89"));
    QCOMPARE(Format(QVariant(1234567.891), QStringLiteral("#,##0.00")), QStringLiteral("1.234.567,89"));
    QCOMPARE(Format(QVariant(999), QStringLiteral("#,##0")), QStringLiteral("999"));
}

void TestVb::formatOptionalDecimalsKeepComma()
{
    QCOMPARE(Format(QVariant(2.5), QStringLiteral("0.##")), QStringLiteral("2,5"));
    QCOMPARE(Format(QVariant(2), QStringLiteral("0.##")), QStringLiteral("2,"));
}

void TestVb::formatOfNullOrEmptyIsEmpty()
{
    QCOMPARE(Format(QVariant(), QStringLiteral("##0.00")), QString());
    QCOMPARE(Format(text(""), QStringLiteral("##0.00")), QString());
    QCOMPARE(Format(QVariant(), QStringLiteral("dd/MM/yyyy")), QString());
}

void TestVb::formatOfWordIsTheWord()
{
    QCOMPARE(Format(text("abc"), QStringLiteral("0.00")), QStringLiteral("abc"));
    QCOMPARE(Format(QVariant(2.5f)), QStringLiteral("2,5"));
}

// ---- Format, dates

void TestVb::formatDatePatterns()
{
    const QVariant d(QDate(2024, 3, 5));
    QCOMPARE(Format(d, QStringLiteral("dd/MM/yyyy")), QStringLiteral("05/03/2024"));
    QCOMPARE(Format(d, QStringLiteral("yyyy/MM/dd")), QStringLiteral("2024/03/05"));
    QCOMPARE(Format(d, QStringLiteral("YYYY")), QStringLiteral("2024"));
    QCOMPARE(Format(d, QStringLiteral("yyyy")), QStringLiteral("2024"));
    QCOMPARE(Format(d, QStringLiteral("d/m/yy")), QStringLiteral("5/3/24"));
    QCOMPARE(Format(d, QStringLiteral("DD-MM")), QStringLiteral("05-03"));
}

void TestVb::formatWeekdayAndMonthNames()
{
    const QVariant d(QDate(2024, 3, 5));
    QCOMPARE(Format(d, QStringLiteral("dddd")), QStringLiteral("martes"));
    QCOMPARE(Format(d, QStringLiteral("ddd")), QStringLiteral("mar"));
    QCOMPARE(Format(d, QStringLiteral("dddd d \"de\" mmmm")), QStringLiteral("martes 5 de marzo"));
    QCOMPARE(Format(QVariant(QDate(2024, 3, 6)), QStringLiteral("dddd")), QStringLiteral("miércoles"));
}

void TestVb::formatMinutesAfterHoursMonthsOtherwise()
{
    const QVariant dt(QDateTime(QDate(2024, 3, 5), QTime(8, 5, 9)));
    QCOMPARE(Format(dt, QStringLiteral("HH:mm")), QStringLiteral("08:05"));
    QCOMPARE(Format(dt, QStringLiteral("hh:MM")), QStringLiteral("08:05"));
    QCOMPARE(Format(dt, QStringLiteral("mm")), QStringLiteral("03"));
    QCOMPARE(Format(dt, QStringLiteral("mm:ss")), QStringLiteral("05:09"));
    QCOMPARE(Format(dt, QStringLiteral("h:m:s")), QStringLiteral("8:5:9"));
    QCOMPARE(Format(dt, QStringLiteral("dd/mm/yyyy hh:nn")), QStringLiteral("05/03/2024 08:05"));
}

void TestVb::formatDateTextAndTime()
{
    QCOMPARE(Format(text("05/03/2024"), QStringLiteral("dddd")), QStringLiteral("martes"));
    QCOMPARE(Format(text("2024-03-05"), QStringLiteral("dd/MM/yyyy")), QStringLiteral("05/03/2024"));
    QCOMPARE(Format(QVariant(QTime(8, 30)), QStringLiteral("HH:mm")), QStringLiteral("08:30"));
    QCOMPARE(Format(text("8:30"), QStringLiteral("HH:mm")), QStringLiteral("08:30"));
    QCOMPARE(Format(text("no es fecha"), QStringLiteral("dd/MM/yyyy")), QStringLiteral("no es fecha"));
}

// ---- IsDate, CDate

void TestVb::isDateAcceptsCalendarDates()
{
    QVERIFY(IsDate(text("05/03/2024")));
    QVERIFY(IsDate(text("5/3/2024")));
    QVERIFY(IsDate(text("29/02/2024")));
    QVERIFY(IsDate(text(" 05/03/2024 ")));
    QVERIFY(IsDate(text("05/03/2024 08:30")));
    QVERIFY(IsDate(text("2024-03-05")));
}

void TestVb::isDateRejectsImpossibleAndEmptyMasks()
{
    QVERIFY(!IsDate(text("31/02/2024")));
    QVERIFY(!IsDate(text("29/02/2023")));
    QVERIFY(!IsDate(text("__/__/____")));
    QVERIFY(!IsDate(text("05/__/2024")));
    QVERIFY(!IsDate(text("")));
    QVERIFY(!IsDate(text("13/13/2024")));
    QVERIFY(!IsDate(text("hoxe")));
}

void TestVb::isDateAcceptsValidTimesOnly()
{
    QVERIFY(IsDate(text("08:30")));
    QVERIFY(IsDate(text("08:30:15")));
    QVERIFY(IsDate(text("23:59")));
    QVERIFY(!IsDate(text("25:00")));
    QVERIFY(!IsDate(text("08:60")));
    QVERIFY(!IsDate(text("__:__")));
}

void TestVb::isDateOfValuesAndNull()
{
    QVERIFY(IsDate(QVariant(QDate(2024, 3, 5))));
    QVERIFY(IsDate(QVariant(QTime(8, 30))));
    QVERIFY(IsDate(QVariant(QDateTime(QDate(2024, 3, 5), QTime(8, 30)))));
    QVERIFY(!IsDate(QVariant(QDate())));
    QVERIFY(!IsDate(QVariant()));
    QVERIFY(!IsDate(QVariant(45356)));
}

void TestVb::cdateReturnsDateTimeOrBoth()
{
    QCOMPARE(CDate(text("05/03/2024")), QVariant(QDate(2024, 3, 5)));
    QCOMPARE(CDate(text("5/3/2024")), QVariant(QDate(2024, 3, 5)));
    QCOMPARE(CDate(text("08:30")), QVariant(QTime(8, 30)));
    QCOMPARE(CDate(text("05/03/2024 08:30")), QVariant(QDateTime(QDate(2024, 3, 5), QTime(8, 30))));
    QCOMPARE(CDate(text("05/03/2024 08:30:15")), QVariant(QDateTime(QDate(2024, 3, 5), QTime(8, 30, 15))));
    QCOMPARE(CDate(QVariant(QDate(2024, 3, 5))), QVariant(QDate(2024, 3, 5)));
}

void TestVb::cdateReadsIsoText()
{
    QCOMPARE(CDate(text("2024-03-05")), QVariant(QDate(2024, 3, 5)));
    QCOMPARE(CDate(text("2024-03-05 14:30:00")), QVariant(QDateTime(QDate(2024, 3, 5), QTime(14, 30))));
    QCOMPARE(CDate(text("2024/03/05")), QVariant(QDate(2024, 3, 5)));
}

void TestVb::cdateRejectsOtherText()
{
    QCOMPARE(errorNumberOf([] { CDate(text("31/02/2024")); }), 13);
    QCOMPARE(errorNumberOf([] { CDate(text("__/__/____")); }), 13);
    QCOMPARE(errorNumberOf([] { CDate(text("")); }), 13);
    QCOMPARE(errorNumberOf([] { CDate(text("25:00")); }), 13);
    QCOMPARE(errorNumberOf([] { CDate(QVariant()); }), 94);
}

// ---- Names and case

void TestVb::weekdayIsMondayFirst()
{
    QCOMPARE(Weekday(QDate(2024, 3, 4)), 1); // a Monday
    QCOMPARE(Weekday(QDate(2024, 3, 5)), 2);
    QCOMPARE(Weekday(QDate(2024, 3, 10)), 7); // a Sunday
}

void TestVb::weekdayNameIsSpanishLowerCase()
{
    const QStringList expected = {QStringLiteral("lunes"),  QStringLiteral("martes"),  QStringLiteral("miércoles"),
                                  QStringLiteral("jueves"), QStringLiteral("viernes"), QStringLiteral("sábado"),
                                  QStringLiteral("domingo")};
    for (int i = 0; i < 7; ++i)
        QCOMPARE(WeekdayName(QDate(2024, 3, 4).addDays(i)), expected[i]);
}

void TestVb::monthNameIsSpanishLowerCase()
{
    QCOMPARE(MonthName(1), QStringLiteral("enero"));
    QCOMPARE(MonthName(9), QStringLiteral("septiembre"));
    QCOMPARE(MonthName(12), QStringLiteral("diciembre"));
    QCOMPARE(errorNumberOf([] { MonthName(13); }), 5);
}

void TestVb::ucaseHandlesAccentsAndEnye()
{
    QCOMPARE(UCase(text("álvarez")), QStringLiteral("ÁLVAREZ"));
    QCOMPARE(UCase(text("peña ñúñez")), QStringLiteral("PEÑA ÑÚÑEZ"));
    QCOMPARE(UCase(QVariant()), QString());
    QCOMPARE(UCase(QVariant(2.5f)), QStringLiteral("2,5"));
}

void TestVb::errorTextsAreSpanish()
{
    QCOMPARE(ErrorText(6), QStringLiteral("Desbordamiento"));
    QCOMPARE(ErrorText(11), QStringLiteral("División por cero"));
    QCOMPARE(ErrorText(5), QStringLiteral("Llamada a procedimiento o argumento no válidos"));
    QCOMPARE(errorNumberOf([] { Raise(RuntimeError::DivisionByZero); }), 11);
}

QTEST_APPLESS_MAIN(TestVb)
#include "test_vb.moc"
