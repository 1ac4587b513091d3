#include "tests/forms/scene_prova.h"

#include "app/frmMain.h"
#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "dialogs/dlgPwd.h"
#include "dialogs/frmAbout.h"
#include "dialogs/frmMsg.h"
#include "link/frmComm.h"
#include "mctc/campi_acc.h"
#include "mctc/frmControlliMctc.h"
#include "mctc/frmMctcO.h"
#include "mctc/modMctc.h"
#include "report/frmEsito.h"
#include "report/frmMctc2.h"
#include "report/frmVerPerO.h"
#include "setup/frmAnagOffO.h"
#include "setup/frmCartella.h"
#include "setup/frmSetupO.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/seriale_prova.h"

#include <QListWidget>
#include <QTest>

namespace {

constexpr qint64 DURATA_SESSIONE = 30000; // ms: also of one that waits in vain

/// Lines of the template and what a careless writing makes of them.
constexpr const char *GUASTI[][2] = {
    {"Targa=AB123CD",             "Targa=A"                  },
    {"DataAccettazione=21112026", "DataAccettazione=31022026"},
    {"Ora=093000",                "Ora=256000"               },
    {"Sesso=M",                   "Sesso=MASCHIO"            },
    {"CAP=47121",                 "CAP="                     },
    {"Telaio=ZZZ00000000000001",  "Telaio="                  },
    {"Km=98500",                  "Km=CENTOMILA"             },
    {"PotMaxkW=85.00",            "PotMaxkW=85,00"           },
};

constexpr const char *CELLE[] = {
    "VertAnabDx",     "VertAnabSx",     "VertAbbDx",     "VertAbbSx",     //
    "OrizzAnabDx",    "OrizzAnabSx",    "OrizzAbbDx",    "OrizzAbbSx",    //
    "IllumLuxAnabDx", "IllumLuxAnabSx", "IllumLuxAbbDx", "IllumLuxAbbSx", //
};

template <typename T>
std::shared_ptr<T> Mostrato(const std::shared_ptr<T> &form)
{
    form->Mostra();
    if (!Attiva(*form))
        qFatal("%s does not come up", qPrintable(form->objectName()));
    return form;
}

// --- vehicles ---------------------------------------------------------------------------------------------

QByteArray File_Guasto(const BancoForm &banco)
{
    QByteArray byte = banco.Stazione.Leggi(QStringLiteral("dati\\ModelloAcc.acc"));
    for (const auto &guasto : GUASTI)
        byte.replace(guasto[0], guasto[1]);
    return byte;
}

/// The worklist with one of its files chosen, the sound one or the one behind it.
std::shared_ptr<Modulo> Lista_Con(const BancoForm &banco, int scelta)
{
    gTipoProva = 2;
    for (const char *nome : {"12345678.acc", "23456789.acc", "AB123CD1.acc"})
        banco.Stazione.Accettazione(QString::fromLatin1(nome));
    banco.Stazione.Scrivi(QStringLiteral("DIR_FAR\\23456789.acc"), File_Guasto(banco));
    const auto form = Mostrato(Nuovo<frmMctcO>());
    auto *lista = Widget_Di<QListWidget>(*form, "lstAuto");
    Regia regia;
    if (scelta == 1)
        regia.Quando("frmMsg", [](Modulo &msg) { Premi(msg, "cmd_0"); });
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                      lista->visualItemRect(lista->item(scelta)).center());
    if (!regia.Finita())
        qFatal("the worklist tells of no fault");
    return form;
}

std::shared_ptr<Modulo> Lista_Sana(const BancoForm &banco)
{
    return Lista_Con(banco, 0);
}
std::shared_ptr<Modulo> Lista_Guasta(const BancoForm &banco)
{
    return Lista_Con(banco, 1);
}

std::shared_ptr<Modulo> Veicolo_Accettato(const BancoForm &banco)
{
    gTipoProva = 2;
    gFileAcc = banco.Stazione.Accettazione(QStringLiteral("12345678.acc"));
    gAltezzaFaroAuto = Vero;
    return Mostrato(Nuovo<frmMctc2>());
}

std::shared_ptr<Modulo> Veicolo_AMano(const BancoForm &banco)
{
    gIniFile = Falso;
    gTipoProva = 2;
    banco.Stazione.Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Simmetrico"), QStringLiteral("1"));
    banco.Stazione.Imposta(QStringLiteral("VEICOLO"), QStringLiteral("Marca"),
                           QStringLiteral("FABBRICA DI PROVA"));
    return Mostrato(Nuovo<frmMctc2>());
}

// --- results ----------------------------------------------------------------------------------------------

std::shared_ptr<Modulo> Esito_Regolare(const BancoForm &)
{
    Carica_Limiti();
    gAltezzaFaro = 65.5;
    Far_Azzera();
    for (const char *cella : CELLE)
        Far_Imposta(QString::fromLatin1(cella), QString::fromLatin1(cella).startsWith(u"Illum")
                                                    ? QStringLiteral("45678")
                                                    : QStringLiteral("R"));
    Far_Imposta(QStringLiteral("TipoAnab"), QStringLiteral("#A"));
    Far_Imposta(QStringLiteral("Esito"), QStringLiteral("R"));
    return Mostrato(Nuovo<frmEsito>());
}

/// Every other beam out of its limits, and a lamp that was not tested.
std::shared_ptr<Modulo> Esito_Irregolare(const BancoForm &)
{
    Carica_Limiti();
    gAltezzaFaro = 100;
    Far_Azzera();
    int i = 0;
    for (const char *cella : CELLE) {
        const bool buona = i++ % 2 == 0;
        if (QString::fromLatin1(cella).startsWith(u"Illum"))
            Far_Imposta(QString::fromLatin1(cella),
                        buona ? QStringLiteral("45678") : QStringLiteral("234567"));
        else
            Far_Imposta(QString::fromLatin1(cella), buona ? QStringLiteral("R") : QStringLiteral("I"));
    }
    Far_Imposta(QString::fromLatin1(CELLE[std::size(CELLE) - 2]), QString());
    Far_Imposta(QStringLiteral("TipoAnab"), QStringLiteral("#S"));
    Far_Imposta(QStringLiteral("Esito"), QStringLiteral("I"));
    return Mostrato(Nuovo<frmEsito>());
}

// --- link -------------------------------------------------------------------------------------------------

/// A session at its end, left open as a technician has it.
std::shared_ptr<Modulo> Sessione(ModoScambio modo, const QList<QByteArray> &risposte)
{
    gDebug = Vero;
    Linee_Prepara([risposte](LineaProva &linea) { linea.Copione(risposte); });
    const auto form = Nuovo<frmComm>();
    form->Modo = modo;
    form->Carica();
    Mostrato(form);
    Orologio_Banco().Avanza(DURATA_SESSIONE);
    return form;
}

std::shared_ptr<Modulo> Sessione_Misura(const BancoForm &)
{
    return Sessione(ModoMisura, {Risposta_Stato('1'), Risposta_Stato('2'), Risposta_Stato('4'),
                                 Risposta_Misura("0123O#", "0456OO", "0789XO", "9999##")});
}

std::shared_ptr<Modulo> Sessione_Lettura(const BancoForm &)
{
    return Sessione(
        ModoLeggi,
        {Risposta_Stato('1'),
         Risposta_Dati({"QX5", "Marca di prova", "OM00000", "000001", "31/12/2027", "Rossi"}),
         Risposta_Taratura({"1000", "0", "100", "101", "102", "103", "104", "105", "106", "107"})});
}

std::shared_ptr<Modulo> Sessione_Muta(const BancoForm &)
{
    return Sessione(ModoMisura, {});
}
std::shared_ptr<Modulo> Sessione_Errata(const BancoForm &)
{
    return Sessione(ModoLeggi, {Risposta_Stato('4')});
}
std::shared_ptr<Modulo> Sessione_AltroTipo(const BancoForm &)
{
    return Sessione(ModoLeggi, {Risposta_Stato('1'), Risposta_Stato('1')});
}

/// The one scene of a session under way: the first caption stands.
std::shared_ptr<Modulo> Sessione_Iniziata(const BancoForm &)
{
    Linee_Prepara({});
    const auto form = Nuovo<frmComm>();
    form->Carica();
    return Mostrato(form);
}

// --- administration ---------------------------------------------------------------------------------------

std::shared_ptr<Modulo> Impostazioni(const BancoForm &)
{
    return Mostrato(Nuovo<frmSetupO>());
}

std::shared_ptr<Modulo> Impostazioni_SenzaRete(const BancoForm &)
{
    gIniFile = Falso;
    return Mostrato(Nuovo<frmSetupO>());
}

/// With the limits open to be written.
std::shared_ptr<Modulo> Impostazioni_Sbloccate(const BancoForm &)
{
    gPwdCorrente.clear(); // a station whose password is empty is open
    const auto form = Mostrato(Nuovo<frmSetupO>());
    Regia regia;
    regia.Quando("dlgPwd", [](Modulo &pwd) { Premi(pwd, "cmd_1"); });
    Premi(*form, "chk_6");
    if (!regia.Finita())
        qFatal("nobody asks for the password");
    return form;
}

std::shared_ptr<Modulo> Cartella(const BancoForm &banco)
{
    const auto form = Nuovo<frmCartella>();
    form->Cartella = banco.Stazione.Percorso(QStringLiteral("dati"));
    return Mostrato(form);
}

template <typename T>
std::shared_ptr<Modulo> Aperto(const BancoForm &)
{
    return Mostrato(Nuovo<T>());
}

// --- boxes ------------------------------------------------------------------------------------------------

std::shared_ptr<Modulo> Messaggio(qint16 modo, const QString &testo)
{
    const auto form = Nuovo<frmMsg>();
    form->Mode = modo;
    form->Text = testo;
    form->Time = 2000;
    return Mostrato(form);
}

std::shared_ptr<Modulo> Messaggio_Breve(const BancoForm &)
{
    return Messaggio(0, Testo_Lingua(58));
}
std::shared_ptr<Modulo> Messaggio_Lungo(const BancoForm &)
{
    return Messaggio(0, Testo_Mctc(108));
}

std::shared_ptr<Modulo> Messaggio_Rapporto(const BancoForm &banco)
{
    banco.Stazione.Scrivi(QStringLiteral("DIR_FAR\\23456789.acc"), File_Guasto(banco));
    const QString percorso = banco.Stazione.Percorso(QStringLiteral("DIR_FAR\\23456789.acc"));
    Campi_Azzera(gCampiAcc, ULTIMA_RIGA_ACC);
    Campi_ImpostaAcc();
    Acc_AssegnaFile(percorso);
    for (CampoForm &campo : gCampiAcc)
        Campo_Leggi(campo);
    QString rapporto;
    Acc_Controlla(percorso, rapporto);
    return Messaggio(1, Testo_Mctc(110) + QStringLiteral(": \r\n") + rapporto);
}

std::shared_ptr<Modulo> Password(const BancoForm &)
{
    const auto form = Mostrato(Password_Prepara(QStringLiteral("segreta")));
    QTest::keyClicks(Widget_Di(*form, "txtPwd"), QStringLiteral("segr"));
    return form;
}

// --- all of them ------------------------------------------------------------------------------------------

struct Scena
{
    const char *nome;
    std::shared_ptr<Modulo> (*apri)(const BancoForm &banco);
};

constexpr Scena SCENE[] = {
    {"menu",                      Aperto<frmMain>         },
    {"lista, file sano",          Lista_Sana              },
    {"lista, file guasto",        Lista_Guasta            },
    {"livelli",                   Aperto<frmControlliMctc>},
    {"veicolo accettato",         Veicolo_Accettato       },
    {"veicolo a mano",            Veicolo_AMano           },
    {"esito regolare",            Esito_Regolare          },
    {"esito irregolare",          Esito_Irregolare        },
    {"collegamento, inizio",      Sessione_Iniziata       },
    {"collegamento, misura",      Sessione_Misura         },
    {"collegamento, lettura",     Sessione_Lettura        },
    {"collegamento, silenzio",    Sessione_Muta           },
    {"collegamento, errata",      Sessione_Errata         },
    {"collegamento, altro tipo",  Sessione_AltroTipo      },
    {"verifica",                  Aperto<frmVerPerO>      },
    {"impostazioni",              Impostazioni            },
    {"impostazioni, senza rete",  Impostazioni_SenzaRete  },
    {"impostazioni, sbloccate",   Impostazioni_Sbloccate  },
    {"cartella",                  Cartella                },
    {"officina",                  Aperto<frmAnagOffO>     },
    {"messaggio breve",           Messaggio_Breve         },
    {"messaggio lungo",           Messaggio_Lungo         },
    {"messaggio con il rapporto", Messaggio_Rapporto      },
    {"password",                  Password                },
    {"informazioni",              Aperto<frmAbout>        },
};

} // namespace

void Scene_Percorri(const QString &lingua,
                    const std::function<void(const QString &scena, const Modulo &modulo)> &guarda)
{
    for (const Scena &scena : SCENE) {
        const BancoForm banco;
        gLingua = lingua;
        Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
        Carica_Lingua(gFileLingue, ULTIMO_TESTO_LINGUA, gTabLingua);
        const auto form = scena.apri(banco);
        form->Finestra()->grab(QRect(0, 0, 1, 1)); // some forms are finished by their first painting
        guarda(QString::fromLatin1(scena.nome), *form);
    }
    Linee_Prepara({});
}

int Scene_Quante()
{
    return static_cast<int>(std::size(SCENE));
}
