#pragma once
// The sample year of seed.sql as the session's year, with the screen
// harness, around each test of a screen:
//
//     void init() { seeded_.start(); }
//     void cleanup() { seeded_.finish(); }
#include "../support/ScreenHarness.h"
#include "../support/TempYear.h"
#include "core/Modulo.h"

#include <memory>

class SeededYear {
public:
    void start()
    {
        year_ = std::make_unique<TempYear>(TempYear::Fill::Seeded);
        gConexion = year_->connect();
        gColor = QStringLiteral(" 12632256 ");
        CodigoAtopado = QVariant();
        gFilaActual = 0;
        harness.start();
    }

    void finish()
    {
        harness.finish();
        gConexion.reset();
        year_.reset();
    }

    const QString& path() const { return year_->path(); }

    ScreenHarness harness;

private:
    std::unique_ptr<TempYear> year_;
};
