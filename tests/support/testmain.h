#pragma once

#include <QObject>
#include <functional>
#include <memory>

namespace tomvera::test {

using FabbricaTest = std::function<std::unique_ptr<QObject>()>;

struct Registrazione
{
    Registrazione(const char* nome, FabbricaTest fabbrica);
};

} // namespace tomvera::test

// Registers a QTest class of this executable; each one is run as its own CTest test.
#define TOMVERA_TEST(Classe)                                                                                           \
    static const tomvera::test::Registrazione registrazione_##Classe(                                                  \
        #Classe, [] { return std::unique_ptr<QObject>(new Classe); });
