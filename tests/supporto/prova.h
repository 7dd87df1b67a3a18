// What every test class needs: registration by name and a private home for its process.
#pragma once

#include <QObject>
#include <QString>
#include <QTest>

#include <functional>
#include <map>

/// Test classes of this program by name.
std::map<QString, std::function<QObject*()>>& ClassiDiProva();

struct RegistraProva
{
    RegistraProva(const char* Nome, std::function<QObject*()> Crea);
};

/// Registers a test class under its name; stands once in each Test*.cpp.
#define PROVA(Classe)                                                                                        \
    static const RegistraProva Registrata_##Classe(#Classe, [] { return static_cast<QObject*>(new Classe); })

/// A fresh folder of this process, with the separator at its end; gone when the process ends.
QString CartellaDiProva();
/// Removes from a folder the folders of test programs that are no more: one that is killed leaves its own.
void TogliCartelleDeiMorti(const QString& Dove);
/// A new empty folder inside it, with the separator at its end.
QString NuovaCartella();
/// A file of tests/, by its path inside it.
QString FileDiProva(const QString& Nome);
/// A file or folder of the sources, by its path below their root.
QString SorgenteDiProva(const QString& Nome);
/// The program folder as built, with the separator at its end.
QString ProgrammaDiProva();
