// The keys of the rows of a note: each is pressed where they stand, and does what the page of keys says.
#pragma once

#include "bancotasti.h"

#include <algorithm>

namespace tastirighe {

inline void LaCella(BancoTasti& B)
{
    const Griglia* Righe = B.Onorari();
    B.Batti();
    if (B.Tasti == u"F2")
        QVERIFY(::LaCella(Righe));
    else
        QVERIFY(Righe->ColonnaCorrente() > 1);
}

inline void RigheVia(BancoTasti& B)
{
    Griglia* Righe = B.Onorari();
    const int Prima = Righe->Righe();
    Righe->Seleziona(0);
    Righe->Seleziona(1);
    B.Box.Attendi(u"Confermi la cancellazione delle voci selezionate?"_s, vbYes);
    B.Batti();
    QCOMPARE(Righe->Righe(), Prima - 2);
}

inline void RigheDiNuovo(BancoTasti& B)
{
    Griglia* Righe = B.Onorari();
    const int Prima = Righe->Righe();
    Righe->Seleziona(0);
    B.Box.Attendi(u"Confermi la cancellazione della voce selezionata?"_s, vbYes);
    B.Batti(u"Ctrl+X"_s);
    QCOMPARE(Righe->Righe(), Prima - 1);
    B.Batti();
    QCOMPARE(Righe->Righe(), Prima);
}

inline void UnaRigaScelta(BancoTasti& B)
{
    const Griglia* Righe = B.Onorari();
    B.Batti();
    QCOMPARE(Righe->Selezione(), QList<int>{0});
    B.Batti();
    QCOMPARE(Righe->Selezione(), QList<int>());
}

inline void RigheScelte(BancoTasti& B)
{
    Griglia* Righe = B.Onorari();
    const bool Sopra = B.Tasti == u"Shift+Up";
    Righe->ImpostaRigaCorrente(Sopra ? 2 : 0);
    B.Batti();
    QList<int> Scelte = Righe->Selezione();
    std::ranges::sort(Scelte);
    QCOMPARE(Scelte, Sopra ? (QList<int>{1, 2}) : (QList<int>{0, 1}));
}

inline void TutteLeRighe(BancoTasti& B)
{
    const Griglia* Righe = B.Onorari();
    B.Batti();
    QCOMPARE(int(Righe->Selezione().size()), Righe->Righe());
}

inline void NessunaRiga(BancoTasti& B)
{
    Griglia* Righe = B.Onorari();
    Righe->Seleziona(1);
    B.Batti();
    QCOMPARE(Righe->Selezione(), QList<int>());
}

inline void CopiaDelleRighe(BancoTasti& B)
{
    Griglia* Righe = B.Onorari();
    const QString Testo = Righe->Vista()->currentIndex().data().toString();
    B.Batti();
    QVERIFY(!Testo.isEmpty());
    QCOMPARE(Appunti(), Testo);
    QVERIFY(!Righe->ComandoPossibile(ComandoRighe::Incolla));
    Righe->Seleziona(0);
    B.Batti();
    QVERIFY(Righe->ComandoPossibile(ComandoRighe::Incolla));
}

inline void RigheIncollate(BancoTasti& B)
{
    Griglia* Righe = B.Onorari();
    const int Prima = Righe->Righe();
    Righe->Seleziona(0);
    Righe->Seleziona(1);
    B.Batti(u"Ctrl+C"_s);
    Righe->AzzeraSelezione();
    B.Batti();
    QCOMPARE(Righe->Righe(), Prima + 2);
}

inline void IlMenu(BancoTasti& B)
{
    (void)B.Onorari();
    B.Batti();
    QWidget* Aperto = QApplication::activePopupWidget();
    QVERIFY(Aperto);
    QCOMPARE(Aperto->objectName(), u"menuRighe"_s);
    Aperto->close();
}

inline void FuoriDalleRighe(BancoTasti& B)
{
    const QWidget* Libro = B.Apri(u"clienti"_s);
    auto* Righe = Controllo<Griglia>(Libro, "tdbRubrica");
    Righe->setFocus();
    QVERIFY(Righe->Vista()->hasFocus());
    B.Batti();
    QVERIFY(QApplication::focusWidget() && !Righe->isAncestorOf(QApplication::focusWidget()));
    // The two lead to different sides.
    const QWidget* Arrivo = QApplication::focusWidget();
    Righe->setFocus();
    B.Batti(B.Tasti == u"F6" ? u"Shift+F6"_s : u"F6"_s);
    QVERIFY(QApplication::focusWidget() != Arrivo);
}

}  // namespace tastirighe
