#include "tests/forms/scene_prova.h"
#include "tests/comuni/testi_prova.h"

#include "app/frmMain.h"
#include "core/codici.h"
#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "core/veicolo.h"
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
constexpr qint64 BATTITO_LISTA = 2000;
constexpr qint64 DOPO_RITORNO = 100; // until the menu has looked at its folder

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

constexpr RigaFar CELLE[] = {
    FarVertAnabDx,     FarVertAnabSx,     FarVertAbbDx,     FarVertAbbSx,     //
    FarOrizzAnabDx,    FarOrizzAnabSx,    FarOrizzAbbDx,    FarOrizzAbbSx,    //
    FarIllumLuxAnabDx, FarIllumLuxAnabSx, FarIllumLuxAbbDx, FarIllumLuxAbbSx, //
};

bool Di_Intensita(RigaFar cella)
{
    return cella >= FarIllumLuxAnabDx && cella <= FarIllumLuxAbbSx;
}

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
    gTipoProva = ProvaScelta;
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

/// The line that was chosen has become another vehicle, a second one is done, and a plate is being looked
/// for.
std::shared_ptr<Modulo> Lista_Cambiata(const BancoForm &banco)
{
    auto form = Lista_Con(banco, 0);
    Orologio_Banco().Avanza(BATTITO_LISTA);
    QByteArray altra = banco.Stazione.Leggi(QStringLiteral("dati\\ModelloAcc.acc"));
    altra.replace("Targa=AB123CD", "Targa=ZW987XY");
    banco.Stazione.Scrivi(QStringLiteral("DIR_FAR\\01234567.acc"), altra);
    banco.Stazione.Scrivi(QStringLiteral("DIR_FAR\\12345678.far"), "[Kandelo]\r\n");
    Orologio_Banco().Avanza(BATTITO_LISTA);
    QTest::keyClicks(Widget_Di(*form, "lstAuto"), QStringLiteral("zw98"));
    return form;
}

/// No file to choose from: the entry form tells why.
template <TestoMctc testo>
std::shared_ptr<Modulo> Veicolo_SenzaLista(const BancoForm &)
{
    gTipoProva = ProvaScelta;
    const auto form = Nuovo<frmMctc2>();
    form->Motivo = Testo_Mctc(testo);
    return Mostrato(form);
}

/// The menu of a station where everything asks for somebody.
std::shared_ptr<Modulo> Menu_ConAvvisi(const BancoForm &banco)
{
    banco.Stazione.Imposta(QStringLiteral("LUMIRA"), QStringLiteral("Comm_ScadRevisione"),
                           QStringLiteral("01/03/2024"));
    banco.Stazione.Imposta(QStringLiteral("COMM"), QStringLiteral("Num"), QStringLiteral("20"));
    gDirAcc = banco.Stazione.Percorso(QStringLiteral("rete\\ESITO\\"));
    const auto form = Mostrato(Nuovo<frmMain>());
    Orologio_Banco().Avanza(DOPO_RITORNO);
    return form;
}

std::shared_ptr<Modulo> Veicolo_Accettato(const BancoForm &banco)
{
    gTipoProva = ProvaScelta;
    gFileAcc = banco.Stazione.Accettazione(QStringLiteral("12345678.acc"));
    gAltezzaFaroAuto = Vero;
    return Mostrato(Nuovo<frmMctc2>());
}

std::shared_ptr<Modulo> Veicolo_AMano(const BancoForm &banco)
{
    gIniFile = Falso;
    gTipoProva = ProvaScelta;
    banco.Stazione.Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Simmetrico"), QStringLiteral("1"));
    banco.Stazione.Imposta(QStringLiteral("VEICOLO"), QStringLiteral("Marca"),
                           QStringLiteral("FABBRICA DI PROVA"));
    return Mostrato(Nuovo<frmMctc2>());
}

// --- results ----------------------------------------------------------------------------------------------

std::shared_ptr<Modulo> Esito_Regolare(const BancoForm &banco)
{
    gFileAcc = banco.Stazione.Accettazione(QStringLiteral("12345678.acc"));
    Veicolo_Prendi();
    Carica_Limiti();
    gAltezzaFaro = 65.5;
    Far_Azzera();
    for (const RigaFar cella : CELLE)
        Far_Imposta(cella, Di_Intensita(cella) ? QStringLiteral("45600") : QStringLiteral("R"));
    Far_Imposta(FarTipoAnab, QStringLiteral("#A"));
    Far_Imposta(FarEsito, QStringLiteral("R"));
    return Mostrato(Nuovo<frmEsito>());
}

/// Every other beam out of its limits, and a lamp that was not tested.
std::shared_ptr<Modulo> Esito_Irregolare(const BancoForm &banco)
{
    gFileAcc = banco.Stazione.Accettazione(QStringLiteral("12345678.acc"));
    Veicolo_Prendi();
    Carica_Limiti();
    gAltezzaFaro = 100;
    Far_Azzera();
    int i = 0;
    for (const RigaFar cella : CELLE) {
        const bool buona = i++ % 2 == 0;
        if (Di_Intensita(cella))
            Far_Imposta(cella, buona ? QStringLiteral("45600") : QStringLiteral("234500"));
        else
            Far_Imposta(cella, buona ? QStringLiteral("R") : QStringLiteral("I"));
    }
    Far_Imposta(FarIllumLuxAbbDx, QString());
    Far_Imposta(FarTipoAnab, QStringLiteral("#S"));
    Far_Imposta(FarEsito, QStringLiteral("I"));
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

/// A session as an operator has it, some time after its beginning. @param linea what the line does.
std::shared_ptr<Modulo> Sessione_Operatore(const std::function<void(LineaProva &)> &linea, qint64 ms)
{
    Linee_Prepara(linea);
    const auto form = Nuovo<frmComm>();
    form->Carica();
    Mostrato(form);
    Orologio_Banco().Avanza(ms);
    return form;
}

/// The first caption stands.
std::shared_ptr<Modulo> Sessione_Iniziata(const BancoForm &)
{
    return Sessione_Operatore({}, 0);
}

std::shared_ptr<Modulo> Sessione_Veicolo(const BancoForm &banco)
{
    constexpr qint64 ATTESA_MISURA = 754000;
    gFileAcc = banco.Stazione.Accettazione(QStringLiteral("12345678.acc"));
    return Sessione_Operatore(
        [](LineaProva &linea) { linea.Rispondi = [](const QByteArray &) { return Risposta_Stato('1'); }; },
        ATTESA_MISURA);
}

std::shared_ptr<Modulo> Sessione_Spenta(const BancoForm &banco)
{
    constexpr qint64 RINUNCIA = 24200;
    gFileAcc = banco.Stazione.Accettazione(QStringLiteral("12345678.acc"));
    return Sessione_Operatore({}, RINUNCIA);
}

/// A measure that the line has damaged, and which is shown as it came.
std::shared_ptr<Modulo> Sessione_Rifiutata(const BancoForm &banco)
{
    QByteArray guasta = Risposta_Misura("0123O#", "0456OO", "0789XO", "9999##");
    guasta[4] = '9';
    gFileAcc = banco.Stazione.Accettazione(QStringLiteral("12345678.acc"));
    return Sessione_Operatore(
        [guasta](LineaProva &linea) {
            linea.Copione({Risposta_Stato('4'), guasta});
        },
        1000);
}

std::shared_ptr<Modulo> Sessione_MalImpostata(const BancoForm &banco)
{
    gFileAcc = banco.Stazione.Accettazione(QStringLiteral("12345678.acc"));
    return Sessione_Operatore([](LineaProva &linea) { linea.RifiutaImpostazioni = true; }, 1000);
}

std::shared_ptr<Modulo> Sessione_SenzaPorta(const BancoForm &banco)
{
    gFileAcc = banco.Stazione.Accettazione(QStringLiteral("12345678.acc"));
    return Sessione_Operatore([](LineaProva &linea) { linea.RifiutaApertura = true; }, DURATA_SESSIONE);
}

std::shared_ptr<Modulo> Sessione_Completata(const BancoForm &banco)
{
    gFileAcc = banco.Stazione.Accettazione(QStringLiteral("12345678.acc"));
    return Sessione_Operatore(
        [](LineaProva &linea) {
            linea.Copione({Risposta_Stato('4'), Risposta_Misura("0123O#", "0456OO", "0789XO", "9999##")});
        },
        1000);
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
    return Messaggio(0, Testo_Lingua(Id_Lingua(58)));
}
std::shared_ptr<Modulo> Messaggio_Lungo(const BancoForm &)
{
    return Messaggio(0, Testo_Mctc(Id_Mctc(108)));
}

std::shared_ptr<Modulo> Messaggio_Rapporto(const BancoForm &banco)
{
    banco.Stazione.Scrivi(QStringLiteral("DIR_FAR\\23456789.acc"), File_Guasto(banco));
    const QString percorso = banco.Stazione.Percorso(QStringLiteral("DIR_FAR\\23456789.acc"));
    Campi_Azzera(gCampiAcc, ULTIMA_RIGA_ACC);
    Campi_ImpostaAcc();
    Acc_Apri(percorso);
    QString rapporto;
    Acc_Controlla(percorso, rapporto);
    return Messaggio(1, Testo_Mctc(Id_Mctc(110)) + QStringLiteral(": \r\n") + rapporto);
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
    {"menu",                      Aperto<frmMain>                            },
    {"menu con avvisi",           Menu_ConAvvisi                             },
    {"lista, file sano",          Lista_Sana                                 },
    {"lista, file guasto",        Lista_Guasta                               },
    {"lista, altro veicolo",      Lista_Cambiata                             },
    {"livelli",                   Aperto<frmControlliMctc>                   },
    {"veicolo accettato",         Veicolo_Accettato                          },
    {"veicolo, lista vuota",      Veicolo_SenzaLista<MctcSceltaVuota>        },
    {"veicolo, senza cartella",   Veicolo_SenzaLista<MctcSceltaSenzaCartella>},
    {"veicolo a mano",            Veicolo_AMano                              },
    {"esito regolare",            Esito_Regolare                             },
    {"esito irregolare",          Esito_Irregolare                           },
    {"collegamento, inizio",      Sessione_Iniziata                          },
    {"collegamento, veicolo",     Sessione_Veicolo                           },
    {"collegamento, senza porta", Sessione_SenzaPorta                        },
    {"collegamento, formato",     Sessione_MalImpostata                      },
    {"collegamento, spento",      Sessione_Spenta                            },
    {"collegamento, rifiutata",   Sessione_Rifiutata                         },
    {"collegamento, completato",  Sessione_Completata                        },
    {"collegamento, misura",      Sessione_Misura                            },
    {"collegamento, lettura",     Sessione_Lettura                           },
    {"collegamento, silenzio",    Sessione_Muta                              },
    {"collegamento, errata",      Sessione_Errata                            },
    {"collegamento, altro tipo",  Sessione_AltroTipo                         },
    {"verifica",                  Aperto<frmVerPerO>                         },
    {"impostazioni",              Impostazioni                               },
    {"impostazioni, senza rete",  Impostazioni_SenzaRete                     },
    {"impostazioni, sbloccate",   Impostazioni_Sbloccate                     },
    {"cartella",                  Cartella                                   },
    {"officina",                  Aperto<frmAnagOffO>                        },
    {"messaggio breve",           Messaggio_Breve                            },
    {"messaggio lungo",           Messaggio_Lungo                            },
    {"messaggio con il rapporto", Messaggio_Rapporto                         },
    {"password",                  Password                                   },
    {"informazioni",              Aperto<frmAbout>                           },
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
