#include "platform/kit/traduzioni.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <algorithm>
#include <array>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

/// A text of the print dialog that the toolkit's Italian lacks.
struct TestoMancante
{
    std::string_view Inglese;
    QStringView Italiano;
};

constexpr std::array TestiMancanti{
    TestoMancante{"Pages", u"Pagine"},
    TestoMancante{"Double Sided Printing", u"Stampa fronte-retro"},
    TestoMancante{"Off", u"No"},
    TestoMancante{"Long side binding", u"Rilegatura sul lato lungo"},
    TestoMancante{"Short side binding", u"Rilegatura sul lato corto"},
};

/// Is asked before the toolkit's own translation.
class Supplemento : public QTranslator
{
public:
    using QTranslator::QTranslator;

    [[nodiscard]] bool isEmpty() const override { return false; }

    [[nodiscard]] QString translate(const char* Contesto, const char* Testo, const char*, int) const override
    {
        if (std::string_view(Contesto) != "QPrintSettingsOutput")
            return {};
        const auto Voce = std::ranges::find(TestiMancanti, std::string_view(Testo), &TestoMancante::Inglese);
        return Voce == TestiMancanti.end() ? QString() : Voce->Italiano.toString();
    }
};

}  // namespace

void InstallaTraduzioni()
{
    auto* Traduttore = new QTranslator(qApp);
    if (Traduttore->load(u"qtbase_it"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)) ||
        Traduttore->load(u"qtbase_it"_s, QCoreApplication::applicationDirPath()))
        QCoreApplication::installTranslator(Traduttore);
    else
        delete Traduttore;
    QCoreApplication::installTranslator(new Supplemento(qApp));
}
