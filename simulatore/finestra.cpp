// The window's controls, and what each does to the instrument.
#include "simulatore/finestra.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

#include <optional>

namespace {

/// The figure of a beam, in hundreds of lux: what the line carries, and what the slider covers, since no lamp
/// comes near the end of the line's.
constexpr int CIFRA_MASSIMA = 9999;
constexpr int CURSORE_MASSIMO = 2000;
constexpr int CURSORE_PAGINA = 50;

/// Pixels. On a screen of 1024 by 768 the window leaves room for its frame and for a panel.
constexpr int LARGA = 980;
constexpr int ALTA = 660;
constexpr int CURSORE_LARGO = 170;
/// The state is looked for from across a table, the rest is not.
constexpr double STATO_PUNTI = 1.4;

constexpr qsizetype CIFRE = 4;
constexpr qsizetype POSTO_VERTICALE = 4;
constexpr qsizetype POSTO_ORIZZONTALE = 5;

/// Lines of the log that are kept to look back at: an hour of polls.
constexpr int RIGHE_TRAME = 5000;
/// What stands before the time of day in a line of the log: the date, which a teacher knows.
constexpr qsizetype DATA = 11;

constexpr std::array STATI{StatoStrumento::Riposo, StatoStrumento::Prova, StatoStrumento::Pronta};

/// A choice of a combo box by what stands behind it; what is none of them is shown as the character it is.
void Scegli(QComboBox &scelta, char carattere)
{
    const QString dato = QString(QLatin1Char(carattere));
    if (scelta.findData(dato) < 0)
        scelta.addItem(u'"' + dato + u'"', dato);
    scelta.setCurrentIndex(scelta.findData(dato));
}

/// What a control is, for who does not see it. The name of a combo box is on some systems what is chosen in
/// it: there its description tells.
void Battezza(QWidget &controllo, const QString &nome)
{
    controllo.setAccessibleName(nome);
    controllo.setAccessibleDescription(nome);
}

char Scelto(const QComboBox &scelta)
{
    return scelta.currentData().toString().front().toLatin1();
}

} // namespace

FinestraQx5::FinestraQx5(Lingua lingua) : m_lingua(lingua)
{
    setWindowTitle(Parole(Parola::Titolo));
    auto *disposizione = new QGridLayout(this);
    disposizione->addWidget(Crea_Stato(), 0, 0);
    disposizione->addWidget(Crea_Veicolo(), 1, 0);
    disposizione->addWidget(Crea_Guasti(), 0, 1, 2, 1);
    disposizione->addWidget(Crea_Trame(), 2, 0, 1, 2);
    disposizione->setRowStretch(1, 1);
    disposizione->setRowStretch(2, 3);
    disposizione->setColumnStretch(0, 1);
    m_dopo.setSingleShot(true);
    connect(&m_dopo, &QTimer::timeout, this, [this] { Mostra(); });
    resize(LARGA, ALTA);
}

void FinestraQx5::Comincia(Strumento &strumento, const QString &porta)
{
    m_strumento = &strumento;
    setWindowTitle(Parole(Parola::Titolo) + QStringLiteral(" · ") + porta);
    Mostra();
}

void FinestraQx5::Annota(const QString &riga)
{
    m_trame->appendPlainText(riga.sliced(DATA));
    m_dopo.start(0);
}

void FinestraQx5::Avvisa(const QString &testo, const std::function<void()> &poi)
{
    auto *avviso = new QMessageBox(QMessageBox::Warning, windowTitle(), testo, QMessageBox::Ok, this);
    avviso->setAttribute(Qt::WA_DeleteOnClose);
    connect(avviso, &QMessageBox::finished, this, [poi] { poi(); });
    avviso->open();
}

// --- the controls ------------------------------------------------------------------------------------------

QWidget *FinestraQx5::Crea_Stato()
{
    auto *gruppo = new QGroupBox(Parole(Parola::Stato));
    auto *riga = new QHBoxLayout(gruppo);
    for (size_t i = 0; i < m_stati.size(); ++i) {
        const StatoStrumento stato = STATI[i];
        auto *bottone = new QRadioButton(Parole(Parola_Stato(stato)));
        bottone->setObjectName(QStringLiteral("stato_%1").arg(i));
        connect(bottone, &QRadioButton::toggled, this, [this, stato](bool scelto) {
            if (!scelto || m_mostra)
                return;
            m_strumento->Stato_Imposta(stato);
            m_dopo.start(0);
        });
        QFont carattere = bottone->font();
        carattere.setPointSizeF(carattere.pointSizeF() * STATO_PUNTI);
        bottone->setFont(carattere);
        m_stati[i] = bottone;
        riga->addWidget(bottone);
    }
    riga->addStretch();
    m_daSolo = new QCheckBox(Parole(Parola::DaSolo));
    m_daSolo->setObjectName(QStringLiteral("daSolo"));
    m_daSolo->setChecked(true);
    connect(m_daSolo, &QCheckBox::toggled, this, [this](bool daSolo) { m_strumento->Stato_Ferma(!daSolo); });
    riga->addWidget(m_daSolo);
    return gruppo;
}

QWidget *FinestraQx5::Crea_Veicolo()
{
    auto *gruppo = new QGroupBox(Parole(Parola::Veicolo));
    auto *griglia = new QGridLayout(gruppo);
    const Parola testate[] = {Parola::Intensita, Parola::Verticale, Parola::Orizzontale};
    const int colonne[] = {1, 3, 4};
    for (size_t i = 0; i < std::size(testate); ++i)
        griglia->addWidget(new QLabel(Parole(testate[i])), 0, colonne[i]);
    for (size_t i = 0; i < m_fasci.size(); ++i)
        Crea_Fascio(i, *griglia);
    griglia->setColumnStretch(1, 1);
    m_tieni = new QCheckBox(Parole(Parola::Tieni));
    m_tieni->setObjectName(QStringLiteral("tieni"));
    connect(m_tieni, &QCheckBox::toggled, this, [this](bool tieni) {
        m_strumento->Record_Fissa(tieni ? std::optional(Record_Scelti()) : std::nullopt);
    });
    const int dopo = static_cast<int>(m_fasci.size()) + 1;
    griglia->addWidget(m_tieni, dopo, 0, 1, 5);
    griglia->setRowStretch(dopo + 1, 1); // what is left over stands below, not between
    return gruppo;
}

void FinestraQx5::Crea_Fascio(size_t numero, QGridLayout &griglia)
{
    Fascio &fascio = m_fasci[numero];
    const QString nome = Parole(Parola_Record(numero));
    const QString codice = QString::fromUtf16(NOMI_RECORD[numero]);
    const auto battezza = [&nome, &codice](QWidget *controllo, const QString &prefisso, const QString &cosa) {
        controllo->setObjectName(prefisso + u'_' + codice);
        Battezza(*controllo, nome + QStringLiteral(", ") + cosa);
    };

    fascio.cursore = new QSlider(Qt::Horizontal);
    fascio.cursore->setRange(0, CURSORE_MASSIMO);
    fascio.cursore->setPageStep(CURSORE_PAGINA);
    fascio.cursore->setMinimumWidth(CURSORE_LARGO);
    fascio.cifra = new QSpinBox;
    fascio.cifra->setRange(0, CIFRA_MASSIMA);
    fascio.cifra->setSuffix(QStringLiteral("00 lux"));
    fascio.verticale = Crea_Mira({
        {'O', Parola::Regolare},
        {'A', Parola::Alto    },
        {'B', Parola::Basso   }
    });
    fascio.orizzontale = Crea_Mira({
        {'O', Parola::Regolare},
        {'S', Parola::Sinistra},
        {'D', Parola::Destra  }
    });
    battezza(fascio.cursore, QStringLiteral("cursore"), Parole(Parola::Intensita));
    battezza(fascio.cifra, QStringLiteral("cifra"), Parole(Parola::Intensita));
    battezza(fascio.verticale, QStringLiteral("verticale"), Parole(Parola::Verticale));
    battezza(fascio.orizzontale, QStringLiteral("orizzontale"), Parole(Parola::Orizzontale));

    Collega_Fascio(fascio);

    const int riga = static_cast<int>(numero) + 1;
    auto *etichetta = new QLabel(nome);
    etichetta->setBuddy(fascio.cursore);
    griglia.addWidget(etichetta, riga, 0);
    griglia.addWidget(fascio.cursore, riga, 1);
    griglia.addWidget(fascio.cifra, riga, 2);
    griglia.addWidget(fascio.verticale, riga, 3);
    griglia.addWidget(fascio.orizzontale, riga, 4);
}

void FinestraQx5::Collega_Fascio(Fascio &fascio)
{
    // Slider and figure are one value; a figure beyond the slider leaves it at its end.
    connect(fascio.cursore, &QSlider::valueChanged, this, [this, &fascio](int valore) {
        if (!m_mostra)
            fascio.cifra->setValue(valore);
    });
    connect(fascio.cifra, &QSpinBox::valueChanged, this, [this, &fascio](int valore) {
        const QScopedValueRollback<bool> mostra(m_mostra, true);
        fascio.cursore->setValue(valore);
    });
    connect(fascio.cifra, &QSpinBox::valueChanged, this, [this] { Fissa_Record(); });
    for (QComboBox *mira : {fascio.verticale, fascio.orizzontale})
        connect(mira, &QComboBox::currentIndexChanged, this, [this] { Fissa_Record(); });
}

QComboBox *FinestraQx5::Crea_Mira(std::initializer_list<std::pair<char, Parola>> scelte)
{
    auto *mira = new QComboBox;
    for (const auto &[carattere, parola] : scelte)
        mira->addItem(Parole(parola), QString(QLatin1Char(carattere)));
    mira->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    return mira;
}

QWidget *FinestraQx5::Crea_Guasti()
{
    auto *gruppo = new QGroupBox(Parole(Parola::Guasti));
    auto *griglia = new QGridLayout(gruppo);
    for (const TipoGuasto tipo : Guasti_Tutti()) {
        const QString nome = Parole(Parola_Guasto(tipo));
        auto *acceso = new QCheckBox(nome);
        acceso->setObjectName(QStringLiteral("guasto_") + Guasto_Nome(tipo));
        auto *comando = new QComboBox;
        comando->setObjectName(QStringLiteral("comando_") + Guasto_Nome(tipo));
        Battezza(*comando, nome + QStringLiteral(", ") + Parole(Parola::Comando));
        comando->addItem(Parole(Parola::Tutti));
        for (const DefComando &def : Comandi_Tutti())
            comando->addItem(QString::fromUtf16(def.nome), static_cast<int>(def.codice));
        connect(acceso, &QCheckBox::toggled, this, [this] { Applica_Guasti(); });
        connect(comando, &QComboBox::currentIndexChanged, this, [this] { Applica_Guasti(); });
        const int riga = static_cast<int>(m_guasti.size());
        griglia->addWidget(acceso, riga, 0);
        griglia->addWidget(comando, riga, 1);
        m_guasti.append({tipo, acceso, comando});
    }
    griglia->setRowStretch(static_cast<int>(m_guasti.size()), 1);
    return gruppo;
}

QWidget *FinestraQx5::Crea_Trame()
{
    auto *gruppo = new QGroupBox(Parole(Parola::Trame));
    auto *disposizione = new QVBoxLayout(gruppo);
    m_trame = new QPlainTextEdit;
    m_trame->setObjectName(QStringLiteral("trame"));
    m_trame->setAccessibleName(Parole(Parola::Trame));
    m_trame->setReadOnly(true);
    m_trame->setTabChangesFocus(true);
    m_trame->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_trame->setMaximumBlockCount(RIGHE_TRAME);
    m_trame->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    disposizione->addWidget(m_trame);
    return gruppo;
}

// --- from the instrument to the window ---------------------------------------------------------------------

void FinestraQx5::Mostra()
{
    const QScopedValueRollback<bool> mostra(m_mostra, true);
    for (size_t i = 0; i < m_stati.size(); ++i)
        m_stati[i]->setChecked(m_strumento->Stato() == STATI[i]);
    for (size_t i = 0; i < m_fasci.size(); ++i)
        Mostra_Fascio(m_fasci[i], m_strumento->Record()[i]);
}

void FinestraQx5::Mostra_Fascio(const Fascio &fascio, const QByteArray &record)
{
    fascio.cifra->setValue(record.first(CIFRE).toInt());
    Scegli(*fascio.verticale, record[POSTO_VERTICALE]);
    Scegli(*fascio.orizzontale, record[POSTO_ORIZZONTALE]);
}

// --- from the window to the instrument ---------------------------------------------------------------------

RecordMisura FinestraQx5::Record_Scelti() const
{
    RecordMisura record;
    for (size_t i = 0; i < record.size(); ++i) {
        const Fascio &fascio = m_fasci[i];
        record[i] = QByteArray::number(fascio.cifra->value()).rightJustified(CIFRE, '0') +
                    Scelto(*fascio.verticale) + Scelto(*fascio.orizzontale);
    }
    return record;
}

/// A value that the teacher sets is meant to stay: the next vehicle would take it away before it is measured.
void FinestraQx5::Fissa_Record()
{
    if (m_mostra)
        return;
    if (m_tieni->isChecked())
        m_strumento->Record_Fissa(Record_Scelti());
    else
        m_tieni->setChecked(true);
}

void FinestraQx5::Applica_Guasti()
{
    QList<Guasto> guasti;
    for (const RigaGuasto &riga : m_guasti) {
        const QVariant codice = riga.comando->currentData();
        const auto comando =
            codice.isValid() ? std::optional(static_cast<CodiceComando>(codice.toInt())) : std::nullopt;
        if (riga.acceso->isChecked())
            guasti.append(Guasto_Continuo(riga.tipo, comando));
    }
    m_strumento->Guasti_Imposta(guasti);
}
