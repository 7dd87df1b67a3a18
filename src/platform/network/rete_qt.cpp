#include "platform/network/rete_qt.h"

#include "platform/network/rete.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkInformation>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslSocket>
#include <QThread>
#include <QTimer>
#include <QUrl>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// A way in: https, or http on this machine.
bool Ammesso(const QUrl& Dove)
{
    if (!Dove.isValid() || Dove.host().isEmpty() || !Dove.userInfo().isEmpty())
        return false;
    return Dove.scheme() == u"https" || (Dove.scheme() == u"http" && QuestaMacchina(Dove.host()));
}

bool Prosegue(const QUrl& Da, const QUrl& A)
{
    return Ammesso(A) && A.host() == Da.host() && (Da.scheme() == u"http" || A.scheme() == u"https");
}

/// Where an answer sends on to; empty for any other answer.
QUrl Rinvio(const QNetworkReply& Risposta)
{
    const QUrl Verso = Risposta.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    return Verso.isEmpty() ? Verso : Risposta.url().resolved(Verso);
}

class ProxyDiSistema : public QNetworkProxyFactory
{
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& Domanda) override
    {
        if (QuestaMacchina(Domanda.url().host()))
            return {QNetworkProxy(QNetworkProxy::NoProxy)};
        return systemProxyForQuery(Domanda);
    }
};

/// The same few headers from every user, whatever his language and system.
QNetworkRequest Domanda(const RichiestaRete& Chiesta, const QUrl& Dove, const QString& Autorita)
{
    QNetworkRequest Nuova(Dove);
    Nuova.setHeader(QNetworkRequest::UserAgentHeader, Chiesta.Agente);
    Nuova.setRawHeader("Accept-Language"_ba, "it"_ba);
    // Bytes as they lie on the server: their number is the announced one.
    Nuova.setRawHeader("Accept-Encoding"_ba, "identity"_ba);
    Nuova.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    Nuova.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    Nuova.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    Nuova.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    Nuova.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    Nuova.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    Nuova.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    if (Dove.scheme() == u"https" && !Autorita.isEmpty()) {
        QSslConfiguration Fiducia = QSslConfiguration::defaultConfiguration();
        Fiducia.setCaCertificates(QSslCertificate::fromPath(Autorita));
        Nuova.setSslConfiguration(Fiducia);
    }
    return Nuova;
}

/// One transfer; everything but its counters lives on its thread.
class TrasferimentoQt final : public Trasferimento
{
public:
    TrasferimentoQt(RichiestaRete Richiesta, QString FileAutorita)
        : Chiesta(std::move(Richiesta)), Autorita(std::move(FileAutorita)), LimiteDisco(guasti::LimiteFile),
          Filo(QThread::create([this] { Esegui(); }))
    {
        Filo->start();
    }
    ~TrasferimentoQt() override
    {
        const bool Intero = Attendi(0);
        Annullato = true;
        Filo->wait();
        if (!Intero && Aperto)
            QFile::remove(PercorsoNativo(Chiesta.File));
    }
    TrasferimentoQt(const TrasferimentoQt&) = delete;
    TrasferimentoQt& operator=(const TrasferimentoQt&) = delete;

    bool Attendi(int Ms) override
    {
        std::unique_lock Chiave(Serratura);
        return Campana.wait_for(Chiave, std::chrono::milliseconds(Ms), [this] { return Esito.has_value(); });
    }
    FineRete Fine() const override
    {
        const std::lock_guard Chiave(Serratura);
        return Esito.value_or(FineRete::Annullata);
    }
    qint64 Ricevuti() const override { return Avuti; }
    qint64 Totale() const override { return Annunciati; }
    void Annulla() override { Annullato = true; }

private:
    void Esegui()
    {
        const FineRete Fine = Scarica();
        File.close();
        const std::lock_guard Chiave(Serratura);
        Esito = Fine;
        Campana.notify_all();
    }

    FineRete Scarica();
    void Ascolta(QNetworkReply& Risposta);
    void Sorveglia(QNetworkReply& Risposta);
    void Prendi(QNetworkReply& Risposta);
    void Smetti(QNetworkReply& Risposta, FineRete Perche);
    [[nodiscard]] FineRete Giudica(QNetworkReply& Risposta);
    bool ApriFile();

    const RichiestaRete Chiesta;
    const QString Autorita;
    const qint64 LimiteDisco;

    // Of the thread.
    QFile File;
    QElapsedTimer Inizio;
    QElapsedTimer UltimoSegno;
    bool Partita = false;  ///< the server has had the question
    std::optional<FineRete> Smesso;

    std::atomic<bool> Annullato = false;
    std::atomic<bool> Aperto = false;  ///< the file is the transfer's
    std::atomic<qint64> Avuti = 0;
    std::atomic<qint64> Annunciati = -1;

    mutable std::mutex Serratura;
    std::condition_variable Campana;
    std::optional<FineRete> Esito;
    std::unique_ptr<QThread> Filo;  // the last member: it begins when the others are there
};

FineRete TrasferimentoQt::Scarica()
{
    QUrl Dove(Chiesta.Indirizzo, QUrl::StrictMode);
    if (!Ammesso(Dove))
        return FineRete::Vietata;
    if (Dove.scheme() == u"https" && !QSslSocket::supportsSsl())
        return FineRete::Certificato;
    QNetworkAccessManager Gestore;
    Gestore.setProxyFactory(new ProxyDiSistema);
    Inizio.start();
    constexpr int MassimiRinvii = 3;
    for (int Rinvii = 0;; ++Rinvii) {
        const std::unique_ptr<QNetworkReply> Risposta(Gestore.get(Domanda(Chiesta, Dove, Autorita)));
        Ascolta(*Risposta);
        const QUrl Verso = Rinvio(*Risposta);
        if (Smesso || Verso.isEmpty())
            return Giudica(*Risposta);
        if (Rinvii == MassimiRinvii || !Prosegue(Dove, Verso))
            return FineRete::Vietata;
        Dove = Verso;
    }
}

/// Takes what comes until the answer ends, or is ended.
void TrasferimentoQt::Ascolta(QNetworkReply& Risposta)
{
    constexpr qint64 Scorta = qint64(1) << 20;
    Risposta.setReadBufferSize(Scorta);  // what is not written yet stays with the server
    UltimoSegno.start();
    QEventLoop Giro;
    const auto Segno = [this] { UltimoSegno.restart(); };
    QObject::connect(&Risposta, &QNetworkReply::requestSent, &Giro, [&] {
        Partita = true;
        Segno();
    });
    QObject::connect(&Risposta, &QNetworkReply::metaDataChanged, &Giro, Segno);
    QObject::connect(&Risposta, &QNetworkReply::readyRead, &Giro, [&] {
        Segno();
        Prendi(Risposta);
    });
    QObject::connect(&Risposta, &QNetworkReply::finished, &Giro, &QEventLoop::quit, Qt::QueuedConnection);
    QTimer Orologio;
    QObject::connect(&Orologio, &QTimer::timeout, &Giro, [&] { Sorveglia(Risposta); });
    constexpr int OgniMs = 20;
    Orologio.start(OgniMs);
    if (!Risposta.isFinished())
        Giro.exec();
}

void TrasferimentoQt::Smetti(QNetworkReply& Risposta, FineRete Perche)
{
    if (Smesso)
        return;
    Smesso = Perche;
    Risposta.abort();
}

void TrasferimentoQt::Sorveglia(QNetworkReply& Risposta)
{
    if (Annullato)
        Smetti(Risposta, FineRete::Annullata);
    else if (!Partita && Inizio.elapsed() > Chiesta.ConnessioneMs)
        Smetti(Risposta, FineRete::SenzaConnessione);
    else if ((Partita && UltimoSegno.elapsed() > Chiesta.SilenzioMs) ||
             (Chiesta.TotaleMs > 0 && Inizio.elapsed() > Chiesta.TotaleMs))
        Smetti(Risposta, Partita ? FineRete::Interrotta : FineRete::SenzaConnessione);
}

bool TrasferimentoQt::ApriFile()
{
    if (Aperto)
        return true;
    File.setFileName(PercorsoNativo(Chiesta.File));
    QFile::remove(File.fileName());
    Aperto = File.open(QIODevice::WriteOnly | QIODevice::NewOnly);
    return Aperto;
}

/// Writes what has come in.
void TrasferimentoQt::Prendi(QNetworkReply& Risposta)
{
    if (Smesso || !Rinvio(Risposta).isEmpty())
        return;
    const QVariant Lunghezza = Risposta.header(QNetworkRequest::ContentLengthHeader);
    Annunciati = Lunghezza.isValid() ? Lunghezza.toLongLong() : -1;
    const QByteArray Byte = Risposta.readAll();
    if (!ApriFile())
        return Smetti(Risposta, FineRete::Disco);
    if (std::max<qint64>(Annunciati, Avuti + Byte.size()) > Chiesta.MassimoByte)
        return Smetti(Risposta, FineRete::TroppoGrande);
    if ((LimiteDisco > 0 && Avuti + Byte.size() > LimiteDisco) || File.write(Byte) != Byte.size())
        return Smetti(Risposta, FineRete::Disco);
    Avuti += Byte.size();
}

FineRete TrasferimentoQt::Giudica(QNetworkReply& Risposta)
{
    const QNetworkReply::NetworkError Guasto = Risposta.error();
    const int Stato = Risposta.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    // An error page is a page: whoever asked for it judges what is in it.
    constexpr int PrimoStatoDiErrore = 400;
    const bool Intera = Guasto == QNetworkReply::NoError ||
                        (Stato >= PrimoStatoDiErrore && Guasto >= QNetworkReply::ContentAccessDenied);
    if (Intera)
        Prendi(Risposta);
    if (Smesso)
        return *Smesso;
    if (Intera) {
        // Where everything comes at once, Qt may take a connection that was cut for the end of the answer.
        if (Annunciati >= 0 && Avuti != Annunciati)
            return FineRete::Interrotta;
        return File.flush() ? FineRete::Completa : FineRete::Disco;
    }
    if (Guasto == QNetworkReply::SslHandshakeFailedError)
        return FineRete::Certificato;
    return Partita ? FineRete::Interrotta : FineRete::SenzaConnessione;
}

/// The backend is loaded when somebody asks for the first time.
bool Connesso()
{
    using enum QNetworkInformation::Reachability;
    if (!QNetworkInformation::instance() &&
        !QNetworkInformation::loadBackendByFeatures(QNetworkInformation::Feature::Reachability))
        return true;
    return QNetworkInformation::instance()->reachability() != Disconnected;
}

}  // namespace

void InstallaReteQt(OpzioniReteQt Opzioni)
{
    Rete Tavola;
    Tavola.Avvia = [Autorita = Opzioni.FileAutorita](const RichiestaRete& Chiesta) {
        return std::make_unique<TrasferimentoQt>(Chiesta, Autorita);
    };
    Tavola.Respiro = std::move(Opzioni.Respiro);
    InstallaRete(std::move(Tavola));
    Shell Servizi = InstallaShell({});
    Servizi.Connesso = Connesso;
    InstallaShell(std::move(Servizi));
}
