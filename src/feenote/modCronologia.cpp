#include "feenote/modCronologia.h"

#include "feenote/modParti.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// What belongs to the window.
void RiportaFinestra(Parcella& Nota, const Parcella& Da)
{
    Nota.Nome = Da.Nome;
    Nota.Scelta = Da.Scelta;
    Nota.Modificata = Da.Modificata;
    Nota.Pronta = Da.Pronta;
    Nota.Fuoco = Da.Fuoco;
    Nota.AvvisoNotaGiudiziale = Da.AvvisoNotaGiudiziale;
    Nota.InsUltimaOno = Da.InsUltimaOno;
    Nota.InsUltimaDir = Da.InsUltimaDir;
    Nota.IDMultipla = Da.IDMultipla;
    Nota.Multi = Da.Multi;
}

/// What is printed with the note marks nothing, so that no mark waits for it either.
void RiportaSocio(Parcella& Nota, const Parcella& Da)
{
    Nota.txtParcMultipla = Da.txtParcMultipla;
    Nota.txtPathParcMult = Da.txtPathParcMult;
    Nota.optMultiAntPos = Da.optMultiAntPos;
    Nota.chkMultiParam = Da.chkMultiParam;
}

/// What belongs to the file and to the window, and stays as it is whatever step is taken.
void Riporta(Parcella& Nota, const Parcella& Da)
{
    RiportaFinestra(Nota, Da);
    Nota.Percorso = Da.Percorso;
    Nota.Psw = Da.Psw;
    Nota.NsRif = Da.NsRif;
    RiportaSocio(Nota, Da);

    // The file of an electronic invoice is written, whatever the note says afterwards.
    Nota.FatturaXml.File = Da.FatturaXml.File;
    Nota.FatturaXml.Quando = Da.FatturaXml.Quando;
    Nota.FatturaXml.Progressivo = Da.FatturaXml.Progressivo;
    Nota.FatturaXml.DiFattura = Da.FatturaXml.DiFattura;

    // Neither does a document that has gone out come back. What follows from the record (payments, the number
    // of the invoice) is found again behind the step.
    Nota.Stato = Da.Stato;
}

/// True when a note is what its file holds, in every respect that a mark is for: one that is taken off takes
/// the recovery copy along.
bool ComeInFile(const Parcella& Nota, const std::optional<Parcella>& InFile)
{
    if (!InFile)
        return false;
    Parcella Copia = *InFile;
    RiportaFinestra(Copia, Nota);
    // A file that has got another name is the same one; one that was deleted holds nothing.
    if (!Nota.Percorso.isEmpty())
        Copia.Percorso = Nota.Percorso;
    RiportaSocio(Copia, Nota);
    // Told otherwise it is still the same note.
    Copia.ArchivioNonLetto = Nota.ArchivioNonLetto;
    Copia.NomiAttesi = Nota.NomiAttesi;
    return Copia == Nota;
}

/// The document in view is a choice of what to look at; the record changes by its boxes.
bool AltroDocumento(const Parcella& Prima, const Parcella& Dopo)
{
    return Prima.cmbTipoStampa != Dopo.cmbTipoStampa;
}

template <auto... Membri>
bool Diversi(const Parcella& Prima, const Parcella& Dopo)
{
    return (... || !(Prima.*Membri == Dopo.*Membri));
}

/// An exact value that brings its bracket along; a bracket that is chosen takes the value away.
bool ValoreScritto(const Parcella& Prima, const Parcella& Dopo)
{
    return Prima.ImportoPrec != Dopo.ImportoPrec && Dopo.ImportoPrec != 0;
}

QList<quint64> ChiaviDi(const TabellaRighe& Tabella)
{
    QList<quint64> Chiavi;
    Chiavi.reserve(Tabella.Righe());
    for (int i = 0; i < Tabella.Righe(); ++i)
        Chiavi.append(Tabella.Chiave(i));
    return Chiavi;
}

QList<quint64> Ordinate(QList<quint64> Chiavi)
{
    std::ranges::sort(Chiavi);
    return Chiavi;
}

/// Cells that differ between two tables of the same rows, counted up to two.
int CelleDiverse(const TabellaRighe& Prima, const TabellaRighe& Dopo)
{
    int Quante = 0;
    for (int i = 0; i < Prima.Righe() && Quante < 2; ++i)
        for (int j = 0; !Prima.StessaRiga(Dopo, i) && j < Prima.Colonne() && Quante < 2; ++j)
            Quante += Prima(i, j) == Dopo(i, j) ? 0 : 1;
    return Quante;
}

/// What happened to the lines of a list; empty when nothing did.
QString NomeRighe(const TabellaRighe& Prima, const TabellaRighe& Dopo, const QString& Elenco)
{
    if (Prima == Dopo)
        return {};
    const auto Con = [&](QStringView Atto) { return Atto.toString() + u' ' + Elenco; };
    const QList<quint64> Erano = ChiaviDi(Prima);
    const QList<quint64> Sono = ChiaviDi(Dopo);
    if (Sono.size() > Erano.size())
        return Con(Sono.size() - Erano.size() == 1 ? u"nuova riga" : u"nuove righe");
    if (Sono.size() < Erano.size())
        return Con(Erano.size() - Sono.size() == 1 ? u"riga tolta" : u"righe tolte");
    if (Erano != Sono)
        return Con(Ordinate(Erano) == Ordinate(Sono) ? u"righe spostate" : u"altre righe");
    return Con(CelleDiverse(Prima, Dopo) == 1 ? u"cella" : u"importi");
}

/// Letters of one box, and what leaving it writes besides, are of one kind, and one step.
enum class Lettere { Nessuna, Parti, Valore, NumeroParti, Variazione, Percentuali, Fattura };

struct VocePasso
{
    QStringView Nome;
    bool (*Cambia)(const Parcella&, const Parcella&);
    Lettere Di = Lettere::Nessuna;
};

/// The first that applies names the step: a parameter before what follows from it.
constexpr std::array Voci{
    VocePasso{u"tariffa", Diversi<&Parcella::Tariffa>},
    VocePasso{u"categoria", Diversi<&Parcella::CodCateg>},
    VocePasso{u"autorità", Diversi<&Parcella::cmbAutor>},
    VocePasso{u"valore esatto", ValoreScritto, Lettere::Valore},
    VocePasso{u"scaglione", Diversi<&Parcella::cmbValore>},
    VocePasso{u"valore esatto", Diversi<&Parcella::ImportoPrec, &Parcella::txtImporto>, Lettere::Valore},
    VocePasso{u"parti assistite", Diversi<&Parcella::PartiAssistite, &Parcella::txtParti>,
              Lettere::NumeroParti},
    VocePasso{u"variazione",
              Diversi<&Parcella::AumRidIdx, &Parcella::AumRidVarP, &Parcella::cmbAumRid, &Parcella::txtAumRid,
                      &Parcella::VariazioneTenuta>,
              Lettere::Variazione},
};

constexpr std::array VociParti{
    VocePasso{u"cliente", Diversi<&Parcella::IDCli, &Parcella::txtCliente>, Lettere::Parti},
    VocePasso{u"controparte", Diversi<&Parcella::IDCon, &Parcella::txtControp>, Lettere::Parti},
    VocePasso{u"oggetto", Diversi<&Parcella::txtOggetto>, Lettere::Parti},
};

constexpr std::array VociDopoLeRighe{
    VocePasso{u"spese e imposte",
              Diversi<&Parcella::chkSpeseGen, &Parcella::chkCP, &Parcella::chkIva, &Parcella::chkRA>},
    VocePasso{u"percentuale",
              Diversi<&Parcella::txtSpeGen, &Parcella::txtCP, &Parcella::txtIVA, &Parcella::txtRA>,
              Lettere::Percentuali},
    VocePasso{
        u"opzioni di stampa",
        Diversi<&Parcella::chkAcconti, &Parcella::chkMinMax, &Parcella::chkRegSempl, &Parcella::chkIvaDiff,
                &Parcella::chkIBAN, &Parcella::chkFattAcc, &Parcella::optContrTipo, &Parcella::UnaPagina>},
    VocePasso{u"fattura elettronica", Diversi<&Parcella::FatturaXml>, Lettere::Fattura},
    VocePasso{u"dati di stampa",
              Diversi<&Parcella::txtDatiPar, &Parcella::txtDatiStaCli, &Parcella::txtDatiStaControp,
                      &Parcella::txtDatiStaOgg, &Parcella::Rappr, &Parcella::BlocchiScritti>,
              Lettere::Parti},
};

struct Chiamato
{
    QString Nome;
    Lettere Di = Lettere::Nessuna;
};

template <class Elenco>
std::optional<Chiamato> Trova(const Elenco& Dove, const Parcella& Prima, const Parcella& Dopo)
{
    const auto Voce = std::ranges::find_if(Dove, [&](const VocePasso& V) { return V.Cambia(Prima, Dopo); });
    if (Voce == std::end(Dove))
        return std::nullopt;
    return Chiamato{Voce->Nome.toString(), Voce->Di};
}

/// The name of a change; nothing when what differs is none of the user's.
std::optional<Chiamato> Chiama(const Parcella& Prima, const Parcella& Dopo)
{
    if (auto Parametro = Trova(Voci, Prima, Dopo))
        return Parametro;
    if (auto Parte = Trova(VociParti, Prima, Dopo))
        return Parte;
    for (const QString& Righe : {NomeRighe(Prima.xOnorari, Dopo.xOnorari, u"degli onorari"_s),
                                 NomeRighe(Prima.xDiritti, Dopo.xDiritti, u"delle spese"_s),
                                 NomeRighe(Prima.xAcconti, Dopo.xAcconti, u"degli acconti"_s)})
        if (!Righe.isEmpty())
            return Chiamato{Righe};
    return Trova(VociDopoLeRighe, Prima, Dopo);
}

}  // namespace

QString NomeModifica(const Parcella& Prima, const Parcella& Dopo)
{
    Parcella Senza = Prima;
    Riporta(Senza, Dopo);
    return Chiama(Senza, Dopo).value_or(Chiamato()).Nome;
}

bool ParametriDiversi(const Parcella& Prima, const Parcella& Dopo)
{
    return Trova(Voci, Prima, Dopo).has_value();
}

void Cronologia::Comincia(const Parcella& Nota, bool Salvata)
{
    Dimentica(Nota);
    InFile = Salvata ? std::optional(Nota) : std::nullopt;
}

void Cronologia::Segna(const Parcella& Nota, const QString& Nome)
{
    Riporta(Attuale, Nota);
    const std::optional<Chiamato> Detto = Chiama(Attuale, Nota);
    if (!Detto || AltroDocumento(Attuale, Nota)) {
        Attuale = Nota;
        SegueDocumento(Nota);
        return;
    }
    Avanti.clear();
    const bool Segue = Detto->Di != Lettere::Nessuna && InEdit == int(Detto->Di) && !Indietro.isEmpty();
    if (!Segue) {
        if (Indietro.size() == Massimo)
            Indietro.removeFirst();
        Indietro.append({Nome.isEmpty() ? Detto->Nome : Nome, Attuale});
    }
    // Letters that were taken back one by one leave no step.
    const bool Resta = !NomeModifica(Indietro.last().Nota, Nota).isEmpty();
    if (!Resta)
        Indietro.removeLast();
    InEdit = int(Resta ? Detto->Di : Lettere::Nessuna);
    Attuale = Nota;
}

void Cronologia::Allinea(const Parcella& Nota)
{
    InEdit = 0;
    Attuale = Nota;
    SegueDocumento(Nota);
}

/// A note without changes of which another document is looked at is still what its file holds, though the
/// document brings its own ticks; so is one to which the archive has given the client.
void Cronologia::SegueDocumento(const Parcella& Nota)
{
    if (!InFile || Nota.Modificata)
        return;
    const bool Riletta = AspettaArchivio(*InFile) && !AspettaArchivio(Nota);
    if (Riletta || AltroDocumento(*InFile, Nota))
        InFile = Nota;
}

void Cronologia::Dimentica(const Parcella& Nota)
{
    Indietro.clear();
    Avanti.clear();
    Allinea(Nota);
}

void Cronologia::SegnaSalvata(const Parcella& Nota)
{
    InEdit = 0;
    InFile = Nota;
}

void Cronologia::SegnaRimessa()
{
    if (!Indietro.isEmpty())
        Indietro.last().Rimessa = true;
}

bool Cronologia::UltimaRimessa() const
{
    return !Indietro.isEmpty() && Indietro.last().Rimessa;
}

bool Cronologia::ESalvata(const Parcella& Nota) const
{
    return ComeInFile(Nota, InFile);
}

QString Cronologia::NomeAnnulla() const
{
    return Indietro.isEmpty() ? QString() : Indietro.last().Nome;
}

QString Cronologia::NomeRipeti() const
{
    return Avanti.isEmpty() ? QString() : Avanti.last().Nome;
}

bool Cronologia::Annulla(Parcella& Nota)
{
    return Passa(Nota, Indietro, Avanti);
}

bool Cronologia::Ripeti(Parcella& Nota)
{
    return Passa(Nota, Avanti, Indietro);
}

bool Cronologia::Passa(Parcella& Nota, QList<Passo>& Da, QList<Passo>& A)
{
    if (Da.isEmpty())
        return false;
    Passo Preso = Da.takeLast();
    A.append({Preso.Nome, Nota, Preso.Rimessa});
    Riporta(Preso.Nota, Nota);
    const bool SiLegge = !AspettaArchivio(Nota);
    Nota = std::move(Preso.Nota);
    // No step leads back to a client without his address, once the archive has given it.
    if (SiLegge && AspettaArchivio(Nota) && RiprovaTenuta(Nota) && InFile)
        (void)RiprovaTenuta(*InFile);
    ::SetModificata(Nota, !ComeInFile(Nota, InFile));
    Allinea(Nota);
    return true;
}
