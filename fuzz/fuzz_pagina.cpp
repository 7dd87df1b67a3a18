// The viewer's pages: any bytes are one. They are shown or refused within moments, whatever they nest and
// span, and nothing of them leads out of the program's folder.
#include "finestre.h"
#include "fonte.h"

#include "core/sessione.h"
#include "update/viewer/pagina.h"

#include <QDir>
#include <QTextBlock>
#include <QTextDocument>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {

/// With the sanitizers: a page that the layout cannot digest takes minutes.
constexpr std::clock_t MassimiSecondi = 8;

void Prova(const QByteArray& Dati)
{
    PreparaFinestre();
    sessione::PercorsoProg = CartellaDiLavoro() + u"programma/"_s;
    QDir().mkpath(sessione::PercorsoProg);
    const QString File = Posa(u"programma/pagina.htm"_s, Dati);
    (void)Posa(u"fuori.htm"_s, "<p>Segreto");

    const std::clock_t Inizio = std::clock();  // of this process alone: the machine may have other work
    static Pagina Vista;
    Vista.resize(600, 400);
    if (Riesce([&] { Pretendi(Vista.Naviga(File)); })) {
        Pretendi(Vista.source().toLocalFile().startsWith(sessione::PercorsoProg));
        (void)Vista.document()->size();
        (void)Vista.Cerca(u"a"_s, false);
        Vista.Ingrandisci(1);
        Vista.GrandezzaNormale();
        Pretendi(!Vista.toPlainText().contains(u"Segreto"));
    }
    Pretendi(std::clock() - Inizio < MassimiSecondi * CLOCKS_PER_SEC);
    sessione::PercorsoProg = CartellaCostruita();
}

}  // namespace

BERSAGLIO(fuzz_pagina, Prova);
