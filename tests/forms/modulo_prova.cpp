#include "tests/forms/modulo_prova.h"

#include <QApplication>
#include <QTest>

namespace {

constexpr int PAZIENZA = 15000; // ms

} // namespace

void ModuloProva::Annota(const char *gestore)
{
    Registro.append(QString::fromLatin1(gestore));
}

void ModuloProva::Annota(const char *gestore, qint16 indice)
{
    Registro.append(QStringLiteral("%1 %2").arg(QLatin1String(gestore)).arg(indice));
}

void ModuloProva::Disegno()
{
    Annota("Disegno");
    Width(9000);
    Height(6000);
    if (AlDisegno)
        AlDisegno();
}

void ModuloProva::Load()
{
    Annota("Load");
    if (AlLoad)
        AlLoad();
}

void ModuloProva::Activate()
{
    Annota("Activate");
    if (AlActivate)
        AlActivate();
}

void ModuloProva::Paint()
{
    ++Dipinture;
    if (AlPaint)
        AlPaint();
}

void ModuloProva::Unload()
{
    Annota("Unload");
    if (AlUnload)
        AlUnload();
}

void ModuloProva::txt_Validate(qint16 Index, bool &Cancel)
{
    Annota("txt_Validate", Index);
    Cancel = Trattieni;
    if (AlValidate)
        AlValidate(Index);
}

void ModuloProva::txt_Change(qint16 Index)
{
    Annota("txt_Change", Index);
    if (AlChange)
        AlChange(Index);
}

void ModuloProva::txt_KeyPress(qint16 Index, qint16 &KeyAscii)
{
    Annota("txt_KeyPress", Index);
    if (AlKeyPress)
        AlKeyPress(Index, KeyAscii);
}

void ModuloProva::cbo_Click(qint16 Index)
{
    Annota("cbo_Click", Index);
    if (AlCombo)
        AlCombo(Index);
}

void ModuloProva::cbo_KeyDown(qint16 Index, qint16 &KeyCode)
{
    Annota("cbo_KeyDown", Index);
    if (AlKeyDown)
        AlKeyDown(Index, KeyCode);
}

void ModuloProva::chk_Click(qint16 Index)
{
    Annota("chk_Click", Index);
    if (AlSpunta)
        AlSpunta(Index);
}

void ModuloProva::cmd_Click(qint16 Index)
{
    Annota("cmd_Click", Index);
    if (AlClick)
        AlClick(Index);
}

void ModuloProva::cmd_KeyPress(qint16 Index, qint16 &KeyAscii)
{
    if (AlTasto)
        AlTasto(Index, KeyAscii);
}

void ModuloProva::FunctionKey(qint16 numero)
{
    Annota("FunctionKey", numero);
    if (AlFunzione)
        AlFunzione(numero);
}

bool Attiva(const Modulo &modulo)
{
    // The toolkit counts a window as active also while a small one that belongs to it has the keyboard.
    const QWidget *finestra = modulo.Finestra();
    return finestra != nullptr && QTest::qWaitForWindowActive(modulo.Finestra()) &&
           QTest::qWaitFor([finestra] { return QApplication::activeWindow() == finestra; });
}

void Scarica_Tutti()
{
    // One that is unloading already, in a step of a modal show say, ends by itself.
    const auto moduli = Moduli_Caricati();
    for (auto modulo = moduli.rbegin(); modulo != moduli.rend(); ++modulo)
        (*modulo)->Scarica();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

ReteModale::ReteModale()
{
    m_attesa.setSingleShot(true);
    QObject::connect(&m_attesa, &QTimer::timeout, &m_attesa, [this] {
        m_scattata = true;
        Scarica_Tutti();
    });
    m_attesa.start(PAZIENZA);
}

ReteModale::~ReteModale() = default;
