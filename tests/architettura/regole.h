// The rules of the house as checks over a tree of sources: each gives the sentences of what breaks it.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

/// A row of the table of rooms, as the build wrote it.
struct Stanza
{
    QStringList PuoConoscere;  ///< folders whose headers it may include beside its own
    QStringList Moduli;        ///< Qt modules beside Core
    [[nodiscard]] bool HaFinestre() const { return Moduli.contains(QStringLiteral("Widgets")); }
};

/// The table of rooms, in the order of src/CMakeLists.txt.
struct Casa
{
    QString Radice;  ///< folder of the sources, with the separator at its end
    QStringList Ordine;
    QHash<QString, Stanza> Stanze;
};

/// Reads the table that the build has written: a line a room, "folder|rooms it may know|Qt modules".
[[nodiscard]] Casa LeggiCasa(const QString& Radice, const QString& Registro);

/// Every file belongs to a room; every include, also of a Designer file, is of a room that the table allows.
[[nodiscard]] QStringList IncludiProibiti(const Casa& Questa);

/// A room's row names nobody whom the room includes nothing of: else the table would allow more than the
/// house asks for, and an arrow drawn would be none.
[[nodiscard]] QStringList FrecceSenzaUso(const Casa& Questa);

/// The table as docs/architecture.md draws it: a line a room, from the last one to the first, "room  rooms
/// that it stands on". Those that these know in turn are left out.
[[nodiscard]] QStringList Disegno(const Casa& Questa);

/// A room knows only rooms above it in the table.
[[nodiscard]] QStringList FrecceInSu(const Casa& Questa);

/// The database engine outside its room; widgets, printers and drawing in a room without windows, but for
/// platform/pages, which draws; headers of the operating system outside platform/.
/// @param IntestazioniQt folder of the headers of Qt, one folder a module
[[nodiscard]] QStringList LibrerieProibite(const Casa& Questa, const QString& IntestazioniQt);

/// Calls of the operating system that stand in headers of the language or of Qt Core: the environment,
/// another program, signals. The demo is left out as in DiscoToccato.
[[nodiscard]] QStringList AmbienteToccato(const Casa& Questa);

/// Qt's classes that touch the disk, named outside platform/. The demo is left out, which makes a home of its
/// own before anything runs.
[[nodiscard]] QStringList DiscoToccato(const Casa& Questa);

/// Commands of a desktop ("xdg-..."), named outside platform/: another system has others.
[[nodiscard]] QStringList ComandiDelDesktop(const Casa& Questa);

/// Errors made of a figure instead of a name of `errori`, where its sentence stands.
[[nodiscard]] QStringList ErroriSenzaNome(const Casa& Questa);

/// One bare name declared in the headers of two rooms, whatever namespaces they stand in: a source that
/// includes both could not compile, or would mean the other one, and whoever reads it has to know which.
[[nodiscard]] QStringList NomiDoppi(const Casa& Questa);

/// Sources that no header of their room stands for: "name.cpp" and "name_part.cpp" include "name.h" of their
/// own folder, so that whoever looks for a body finds its declaration by its name. main.cpp has none.
[[nodiscard]] QStringList SenzaIntestazione(const Casa& Questa);

/// One name that two sources of a room have for themselves alone, a function with the same parameters: the
/// release build compiles sources together, and which ones is left to their number.
[[nodiscard]] QStringList NomiDiDueSorgenti(const Casa& Questa);

/// Classes of tests, in a folder and those below it, that stand behind a condition of the preprocessor or
/// hold one: the meta-object compiler reads them without their headers, so it might pass their functions over
/// unseen.
[[nodiscard]] QStringList ProveCondizionate(const QString& Cartella);

/// Rooms with more than a tenth of the lines of all.
[[nodiscard]] QStringList StanzeTroppoGrandi(const Casa& Questa);
