#include "tests/forms/parole_prova.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

namespace {

constexpr QChar SEGNO(0x2020);

/// What an assistive technology hears of one thing.
QStringList Detto(const QAccessibleInterface &accesso)
{
    QStringList detto;
    for (const QAccessible::Text parte : {QAccessible::Name, QAccessible::Description, QAccessible::Value,
                                          QAccessible::Help, QAccessible::Accelerator})
        detto.append(accesso.text(parte));
    auto *azioni = const_cast<QAccessibleInterface &>(accesso).actionInterface();
    if (azioni == nullptr)
        return detto;
    const QStringList nomi = azioni->actionNames();
    for (const QString &nome : nomi) {
        detto.append(azioni->localizedActionName(nome));
        detto.append(azioni->localizedActionDescription(nome));
        detto.append(azioni->keyBindingsForAction(nome));
    }
    return detto;
}

void Ascolta(QAccessibleInterface *accesso, QStringList &parole)
{
    if (accesso == nullptr || !accesso->isValid())
        return;
    const QString chi = accesso->object() != nullptr ? accesso->object()->objectName() : QString();
    const QStringList detto = Detto(*accesso);
    for (const QString &testo : detto) {
        if (testo.contains(SEGNO))
            parole.append(QStringLiteral("%1 (role %2): %3").arg(chi).arg(accesso->role()).arg(testo));
    }
    for (int i = 0; i < accesso->childCount(); ++i)
        Ascolta(accesso->child(i), parole);
}

QList<QWidget *> Tutti(QWidget *finestra)
{
    return QList<QWidget *>{finestra} + finestra->findChildren<QWidget *>();
}

/// Asks for a menu. @return true when one came up; it is closed again.
bool Apre_Menu(QWidget *widget, QContextMenuEvent::Reason motivo)
{
    bool aperto = false;
    // Some menus hold their caller until they are closed.
    QTimer::singleShot(0, widget, [&aperto] {
        if (QWidget *menu = QApplication::activePopupWidget()) {
            aperto = true;
            menu->close();
        }
    });
    const QPoint centro = widget->rect().center();
    QContextMenuEvent evento(motivo, centro, widget->mapToGlobal(centro));
    QCoreApplication::sendEvent(widget, &evento);
    QCoreApplication::processEvents();
    return aperto;
}

} // namespace

SegnaParole::SegnaParole()
{
    QCoreApplication::installTranslator(this);
}

SegnaParole::~SegnaParole()
{
    QCoreApplication::removeTranslator(this);
}

QString SegnaParole::translate(const char *contesto, const char *testo, const char *distinzione,
                               int quanti) const
{
    if (m_chiede)
        return {};
    m_chiede = true; // what the program answers to it is not the toolkit's own any more
    const QString risposta = QCoreApplication::translate(contesto, testo, distinzione, quanti);
    m_chiede = false;
    return risposta != QString::fromUtf8(testo) ? risposta : SEGNO + risposta + SEGNO;
}

QStringList Parole_Del_Toolkit(QWidget *finestra)
{
    QStringList parole;
    Ascolta(QAccessible::queryAccessibleInterface(finestra), parole);
    const QList<QWidget *> tutti = Tutti(finestra);
    for (const QWidget *widget : tutti) {
        for (const QString &testo :
             {widget->windowTitle(), widget->toolTip(), widget->statusTip(), widget->whatsThis(),
              widget->property("text").toString(), widget->property("placeholderText").toString()})
        {
            if (testo.contains(SEGNO))
                parole.append(QStringLiteral("%1: %2").arg(widget->objectName(), testo));
        }
    }
    return parole;
}

QStringList Menu_Del_Toolkit(QWidget *finestra)
{
    QStringList menu;
    const QList<QWidget *> tutti = Tutti(finestra);
    for (QWidget *widget : tutti) {
        for (const auto motivo : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
            if (Apre_Menu(widget, motivo))
                menu.append(
                    QStringLiteral("%1 %2: a menu")
                        .arg(QString::fromLatin1(widget->metaObject()->className()), widget->objectName()));
        }
    }
    return menu;
}
