#include "tests/forms/banco_form.h"

#include "core/modGeneral.h"
#include "tests/comuni/locale_prova.h"
#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#if defined(LUMIRA_SANITIZZATORI)
#include <sanitizer/lsan_interface.h>
#else
// NOLINTBEGIN(bugprone-reserved-identifier) -- the sanitizer's own names
static void __lsan_disable() {}
static void __lsan_enable() {}
// NOLINTEND(bugprone-reserved-identifier)
#endif

OrologioProva &Orologio_Banco()
{
    // Never destroyed: default instances of forms hold timers of it until the very end.
    static auto *const orologio = new OrologioProva;
    return *orologio;
}

BancoForm::BancoForm()
{
    Orologio_Banco();
    gScreenW = Schermo_Larghezza();
    gScreenH = Schermo_Altezza();
    gSplashFile = QStringLiteral("splash_kp_net.jpg");
    gLogoFile = QStringLiteral("kp_logo.gif");
}

BancoForm::~BancoForm()
{
    Scarica_Tutti();
    Imposta_Locale(QLocale::c());
}

// --- widgets ----------------------------------------------------------------------------------------------

QWidget *Widget_Di(const Modulo &modulo, const char *nome)
{
    QWidget *finestra = modulo.Finestra();
    auto *widget = finestra != nullptr
                       ? finestra->findChild<QWidget *>(QString::fromLatin1(nome), Qt::FindDirectChildrenOnly)
                       : nullptr;
    if (widget == nullptr)
        qFatal("%s has no %s", qPrintable(modulo.objectName()), nome);
    return widget;
}

QString Testo_Di(const Modulo &modulo, const char *nome)
{
    return Widget_Di(modulo, nome)->property("text").toString();
}

bool Visibile(const Modulo &modulo, const char *nome)
{
    return Widget_Di(modulo, nome)->isVisible();
}

bool Abilitato(const Modulo &modulo, const char *nome)
{
    return Widget_Di(modulo, nome)->isEnabled();
}

QRect Posto_Twip(qint32 left, qint32 top, qint32 width, qint32 height)
{
    const QPoint inizio(Pixel_DaTwip(left), Pixel_DaTwip(top));
    const QPoint fine(Pixel_DaTwip(left + width), Pixel_DaTwip(top + height));
    return QRect(inizio, QSize(fine.x() - inizio.x(), fine.y() - inizio.y()));
}

void Premi(const Modulo &modulo, const char *nome)
{
    QTest::mouseClick(Widget_Di(modulo, nome), Qt::LeftButton);
}

void Scrivi(const Modulo &modulo, const char *nome, const QString &testo)
{
    auto *casella = Widget_Di<QLineEdit>(modulo, nome);
    QTest::mouseClick(casella, Qt::LeftButton);
    QTest::keyClick(casella, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(casella, Qt::Key_Delete);
    QTest::keyClicks(casella, testo);
}

QColor Sfondo_Di(QWidget *widget)
{
    return widget->grab().toImage().pixelColor(4, 4);
}

bool Ha_Colore(QWidget *widget, const QColor &colore)
{
    const QImage immagine = widget->grab().toImage();
    for (int y = 0; y < immagine.height(); ++y) {
        for (int x = 0; x < immagine.width(); ++x) {
            if (immagine.pixelColor(x, y) == colore)
                return true;
        }
    }
    return false;
}

bool Ha_Cornice(const Modulo &modulo, qint32 x1, qint32 y1, qint32 x2, qint32 y2)
{
    const QImage immagine = modulo.Finestra()->grab().toImage();
    const auto dipinto = [&immagine](qint32 x, qint32 y) {
        return immagine.pixelColor(Pixel_DaTwip(x), Pixel_DaTwip(y)) == Colore_Cornice();
    };
    const qint32 xMeta = (x1 + x2) / 2;
    const qint32 yMeta = (y1 + y2) / 2;
    return dipinto(xMeta, y1) && dipinto(x2, yMeta) && dipinto(xMeta, y2) && dipinto(x1, yMeta) &&
           dipinto(x1, y1) && dipinto(x2, y2);
}

// --- run-time errors --------------------------------------------------------------------------------------

ErroreAttraverso::ErroreAttraverso()
{
    __lsan_disable();
}
ErroreAttraverso::~ErroreAttraverso()
{
    __lsan_enable();
}

// --- forms ------------------------------------------------------------------------------------------------

std::shared_ptr<Modulo> Modulo_Aperto(const char *nome)
{
    const auto moduli = Moduli_Caricati();
    for (auto modulo = moduli.rbegin(); modulo != moduli.rend(); ++modulo) {
        if ((*modulo)->objectName() == QLatin1String(nome) && (*modulo)->Finestra()->isVisible())
            return *modulo;
    }
    return nullptr;
}

QStringList Nomi_Caricati()
{
    QStringList nomi;
    for (const auto &modulo : Moduli_Caricati())
        nomi.append(modulo->objectName());
    return nomi;
}

Regia &Regia::Quando(const char *modulo, std::function<void(Modulo &)> azione)
{
    const QByteArray nome = modulo;
    // The window is active a moment before its form hears of it: the second look finds both.
    const auto davanti = [nome, viste = 0]() mutable {
        const auto aperto = Modulo_Aperto(nome.constData());
        viste = aperto != nullptr && aperto->Finestra()->isActiveWindow() ? viste + 1 : 0;
        return viste > 1;
    };
    return Quando(davanti, [nome, azione = std::move(azione)] { azione(*Modulo_Aperto(nome.constData())); });
}

Regia &Regia::Quando(std::function<bool()> condizione, std::function<void()> azione)
{
    m_passi.push_back({std::move(condizione), std::move(azione)});
    if (!m_guarda)
        Riguarda();
    return *this;
}

/// A new single shot each time: a timer does not fire again inside its own procedure, and a step may hold.
void Regia::Riguarda()
{
    m_guarda = true;
    QTimer::singleShot(1, &m_contesto, [this] { Guarda(); });
}

void Regia::Guarda()
{
    m_guarda = false;
    if (m_passi.empty())
        return;
    if (!m_passi.front().condizione()) {
        Riguarda();
        return;
    }
    const auto azione = m_passi.front().azione;
    m_passi.erase(m_passi.begin());
    if (!m_passi.empty())
        Riguarda();
    azione();
}
