// The text box on Qt's, and its one line.
#include "toolkit/casella_testo.h"

#include "platform/colore_qt.h"
#include "platform/una_riga.h"
#include "toolkit/aspetto.h"

#include <QLineEdit>
#include <QStyleOptionFrame>
#include <QValidator>

#include <utility>

namespace {

/// A box holds one line. The toolkit asks a validator whatever way a text comes: typed, pasted, dropped, from
/// an input method, an assistive technology or the program.
class UnaRigaSola : public QValidator
{
public:
    using QValidator::QValidator;
    State validate(QString &testo, int &cursore) const override
    {
        // What came in ends at the cursor. What the box held behind it stays.
        const QString prima = Una_Riga(testo.left(cursore));
        testo = prima + Una_Riga(testo.mid(cursore));
        cursore = static_cast<int>(prima.size());
        return Acceptable;
    }
};

} // namespace

CasellaTesto::CasellaTesto(QWidget *finestra, const QString &nome) : Controllo(new QLineEdit(finestra), nome)
{
    Fai<QLineEdit>([this](QLineEdit &riga) {
        riga.setValidator(new UnaRigaSola(&riga));
        // The toolkit also tells of a text that was cut back to the one that stood there.
        QObject::connect(&riga, &QLineEdit::textChanged, &riga,
                         [this, prima = QString()](const QString &testo) mutable {
                             if (std::exchange(prima, testo) != testo)
                                 Change();
                         });
    });
}

QString CasellaTesto::Text() const
{
    return Chiedi<QLineEdit>(QString(), [](const QLineEdit &riga) { return riga.text(); });
}

void CasellaTesto::Text(const QString &testo)
{
    Fai<QLineEdit>([&testo](QLineEdit &riga) {
        riga.setText(testo);
        riga.setCursorPosition(0); // a text longer than its box shows its beginning
    });
}

bool CasellaTesto::Intera() const
{
    return Chiedi<QLineEdit>(true, [](const QLineEdit &riga) {
        QStyleOptionFrame opzione;
        opzione.initFrom(&riga);
        const QRect spazio = riga.style()->subElementRect(QStyle::SE_LineEditContents, &opzione, &riga);
        const int cursore = Spessore_Linea(4); // the caret's room at the ends
        return riga.fontMetrics().horizontalAdvance(riga.displayText()) + cursore <= spazio.width();
    });
}

bool CasellaTesto::Locked() const
{
    return Chiedi<QLineEdit>(false, [](const QLineEdit &riga) { return riga.isReadOnly(); });
}

void CasellaTesto::Locked(bool bloccata)
{
    Fai<QLineEdit>([bloccata](QLineEdit &riga) {
        riga.setReadOnly(bloccata);
        riga.setFocusPolicy(bloccata ? Qt::ClickFocus : Qt::StrongFocus);
    });
}

void CasellaTesto::BackColor(quint32 colore)
{
    const QColor fondo = Colore_Da(colore);
    QString foglio = QStringLiteral("QLineEdit { background: %1; }").arg(fondo.name());
    const QColor testo = Colore_Leggibile(Colore_Tema(Tinta::Testo), fondo);
    if (testo != Colore_Tema(Tinta::Testo))
        foglio += QStringLiteral("QLineEdit { color: %1; }").arg(testo.name());
    Stile(foglio);
}

void CasellaTesto::Nascosta(bool nascosta)
{
    Fai<QLineEdit>([nascosta](QLineEdit &riga) {
        riga.setEchoMode(nascosta ? QLineEdit::Password : QLineEdit::Normal);
    });
}
