#pragma once
// A throw-away year as the session's year (gConexion) around each test, with
// the session's globals back at their start-up values and the grey stripes
// of a configured desktop:
//
//     void init() { session_.start(); }
//     void cleanup() { session_.finish(); }
//
// ScreenYear (ScreenHarness.h) adds the screen harness for the tests of a screen.
#include "core/Modulo.h"
#include "support/TempYear.h"

#include <memory>

class SessionYear {
public:
    // Also in the middle of a test, to go on with another year.
    void start(TempYear::Fill fill = TempYear::Fill::Seeded)
    {
        gConexion.reset();
        year_ = std::make_unique<TempYear>(fill);
        gConexion = year_->connect();
        gColor = QStringLiteral(" 12632256 ");
        gColor2 = QStringLiteral(" 15790320 ");
        CodigoAtopado = QVariant();
        gFilaActual = 0;
        gAtopar.clear();
    }

    void finish()
    {
        gConexion.reset();
        year_.reset();
    }

    const TempYear& year() const { return *year_; }
    const QString& path() const { return year_->path(); }

private:
    std::unique_ptr<TempYear> year_;
};
