// The constant tables, against what every other program of the exchange expects of them.
#include "mctc/formato_acc.h"
#include "tests/mctc/prova_acc.h"

#include <QTest>

class tst_formato_acc : public QObject
{
    Q_OBJECT

private:
    static QStringList Elenco(Vocabolario ammessi)
    {
        QStringList elenco;
        for (const QStringView valore : ammessi)
            elenco.append(valore.toString());
        return elenco;
    }

private Q_SLOTS:
    void righePerSezione_data()
    {
        QTest::addColumn<int>("prima");
        QTest::addColumn<int>("ultima");
        QTest::addColumn<QString>("sezione");
        QTest::newRow("prenotazione") << 0 << 17 << QStringLiteral("Prenotazione");
        QTest::newRow("libretto") << 18 << 46 << QStringLiteral("DatiLibrettoVeicolo");
        QTest::newRow("protocollo") << 47 << 48 << QStringLiteral("IdentificazioneProtocollo");
    }
    void righePerSezione()
    {
        QFETCH(int, prima);
        QFETCH(int, ultima);
        QFETCH(QString, sezione);
        for (int riga = prima; riga <= ultima; ++riga)
            QCOMPARE(REGOLE_ACC[size_t(riga)].Section, sezione);
    }

    /// A row's name is its key.
    void ogniRigaHaLaSuaChiave()
    {
        struct Riga
        {
            RigaAcc riga;
            QStringView chiave;
        };
        constexpr Riga RIGHE[] = {
            {AccDataAccettazione,     u"DataAccettazione"    },
            {AccDataPrenotazione,     u"DataPrenotazione"    },
            {AccOra,                  u"Ora"                 },
            {AccOperatore,            u"Operatore"           },
            {AccLinea,                u"Linea"               },
            {AccTipoRevisione,        u"TipoRevisione"       },
            {AccCognomeDenominazione, u"CognomeDenominazione"},
            {AccNome,                 u"Nome"                },
            {AccDataNascita,          u"DataNascita"         },
            {AccSesso,                u"Sesso"               },
            {AccLuogoNascita,         u"LuogoNascita"        },
            {AccProvinciaNascita,     u"ProvinciaNascita"    },
            {AccIndirizzo,            u"Indirizzo"           },
            {AccCAP,                  u"CAP"                 },
            {AccCitta,                u"Citta"               },
            {AccProvincia,            u"Provincia"           },
            {AccTelefono,             u"Telefono"            },
            {AccNote,                 u"Note"                },
            {AccTipoVeicolo,          u"TipoVeicolo"         },
            {AccDescrizioneVeicolo,   u"DescrizioneVeicolo"  },
            {AccTelaio,               u"Telaio"              },
            {AccFabbrica,             u"Fabbrica"            },
            {AccTipo,                 u"Tipo"                },
            {AccTipoMotore,           u"TipoMotore"          },
            {AccNumOmologazione,      u"NumOmologazione"     },
            {AccAnnoPrimaImm,         u"AnnoPrimaImm"        },
            {AccDataRilascio,         u"DataRilascio"        },
            {AccDataUltimaRev,        u"DataUltimaRev"       },
            {AccAlimentazione1,       u"Alimentazione_1"     },
            {AccAlimentazione2,       u"Alimentazione_2"     },
            {AccKm,                   u"Km"                  },
            {AccTara,                 u"Tara"                },
            {AccMassaComplessiva,     u"MassaComplessiva"    },
            {AccMassaRimorchiabile,   u"MassaRimorchiabile"  },
            {AccCilindrata,           u"Cilindrata"          },
            {AccDecibel,              u"Decibel"             },
            {AccPotMaxkW,             u"PotMaxkW"            },
            {AccGiriMotoredB,         u"GiriMotoredB"        },
            {AccPotFiscaleCV,         u"PotFiscaleCV"        },
            {AccNumTotalePosti,       u"NumTotalePosti"      },
            {AccFrenoStazionamento,   u"FrenoStazionamento"  },
            {AccNumTotaleAssi,        u"NumTotaleAssi"       },
            {AccNumAssiStazionamento, u"NumAssiStazionamento"},
            {AccVeicolo4WD,           u"Veicolo4WD"          },
            {AccImpiantoABS,          u"ImpiantoABS"         },
            {AccFrenoSoccorso,        u"FrenoSoccorso"       },
            {AccTarga,                u"Targa"               },
            {AccVersione,             u"Versione"            },
            {AccData,                 u"Data"                },
        };
        QCOMPARE(std::size(RIGHE), REGOLE_ACC.size());
        for (const Riga &attesa : RIGHE)
            QCOMPARE(REGOLE_ACC[size_t(attesa.riga)].Key, attesa.chiave);
    }

    void didascalie()
    {
        const QList<int> attese{40, 41, 42, 43, 44, 45, 46, 47, 48, -1, 49, -1, 10, -1, 51, -1, 52,
                                53, 55, 56, 57, 58, 59, 60, 61, 62, 63, 64, 65, 66, 67, 72, 68, 73,
                                69, 74, 70, 75, 71, 76, 77, 78, 79, 86, 87, 80, -1, -1, -1};
        QList<int> trovate;
        for (const RegolaCampo &regola : REGOLE_ACC)
            trovate.append(regola.LabelId);
        QCOMPARE(trovate, attese);
    }

    void lunghezzeMassime()
    {
        const QList<int> attese{0,   0, 0, 50, 2,  0,  25, 20, 0, 0, 25, 2, 30, 5, 25, 2, 17,
                                160, 0, 0, 20, 50, 50, 50, 50, 4, 0, 0,  0, 0,  6, 5,  5, 5,
                                5,   3, 6, 4,  3,  3,  0,  1,  1, 0, 0,  0, 10, 0, 0};
        QList<int> trovate;
        for (const RegolaCampo &regola : REGOLE_ACC)
            trovate.append(regola.Massimo);
        QCOMPARE(trovate, attese);
    }

    /// 0 text, 1 number, 2 date, 3 time.
    void generiDiValore()
    {
        const QList<int> attesi{2, 2, 3, 0, 1, 0, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0,
                                1, 2, 2, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 1, 1, 0, 0, 0, 0, 0, 2};
        QList<int> trovati;
        for (const RegolaCampo &regola : REGOLE_ACC)
            trovati.append(regola.ValueKind);
        QCOMPARE(trovati, attesi);
    }

    void generiDiControllo()
    {
        using enum TipoControllo;
        const QList<TipoControllo> attesi{
            Data,   Data,  Ora,    Testo, Cifre, Testo, Testo, Testo, Data,  Testo, Testo,    Esatto, Testo,
            Esatto, Testo, Esatto, Testo, Testo, Testo, Testo, Testo, Testo, Testo, Testo,    Testo,  Anno,
            Data,   Data,  Testo,  Testo, Cifre, Cifre, Cifre, Cifre, Cifre, Cifre, Decimale, Cifre,  Cifre,
            Cifre,  Testo, Cifre,  Cifre, Testo, Testo, Testo, Targa, Testo, Testo};
        QList<TipoControllo> trovati;
        for (const RegolaCampo &regola : REGOLE_ACC)
            trovati.append(regola.Controllo);
        QCOMPARE(trovati, attesi);
    }

    void righeFacoltative()
    {
        const QList<int> attese{7, 8, 9, 10, 11, 16, 17, 23, 27, 30, 31, 32, 33, 34, 35, 36, 37, 38};
        QList<int> trovate;
        for (int riga = 0; riga < RIGHE_ACC; ++riga) {
            if (!REGOLE_ACC[size_t(riga)].Obbligatorio)
                trovate.append(riga);
        }
        QCOMPARE(trovate, attese);
    }

    void soloDueSpunteETreSoliValori()
    {
        for (int riga = 0; riga < RIGHE_ACC; ++riga) {
            const TipoCampo atteso = riga == 43 || riga == 44 ? CampoSpunta
                                     : riga >= 46             ? CampoSoloValore
                                                              : CampoTesto;
            QCOMPARE(REGOLE_ACC[size_t(riga)].Kind, atteso);
        }
    }

    /// A list goes with a text without a maximum, and only with it.
    void elenchiSoloDoveIlTestoNonHaMassimo()
    {
        for (const RegolaCampo &regola : REGOLE_ACC) {
            const bool elenco = regola.Controllo == TipoControllo::Testo && regola.Massimo == 0;
            QCOMPARE(!regola.Ammessi.empty(), elenco);
        }
    }

    void vocabolari_data()
    {
        QTest::addColumn<int>("riga");
        QTest::addColumn<QString>("valori");
        QTest::newRow("revisioni") << 5 << QStringLiteral("ANNUALI,PERIODICHE,STRAORDINARIE");
        QTest::newRow("sesso") << 9 << QStringLiteral("M,F");
        QTest::newRow("classe") << 18 << QStringLiteral("LEGGERO,PESANTE");
        QTest::newRow("descrizione")
            << 19
            << QStringLiteral("AUTOVETTURA,AUTOCARRO,AUTOCARAVAN,AUTOBUS,PROMISCUO,RIMORCHIO,SEMIRIMORCHIO,"
                              "USO SPECIALE,TRASPORTO SPECIFICO,MOTOCICLO,TRICICLO,QUADRICICLO,CICLOMOTORE,"
                              "TRATTORE STRADALE,TRATTORE PER SEMIRIMORCHIO");
        const QString carburanti =
            QStringLiteral("BENZINA<86,BENZINA NO CAT,BENZINA CAT,DIESEL ASPIRATO CON CORRETTORE,"
                           "DIESEL ASPIRATO SENZA CORRETTORE,DIESEL TURBO COMPRESSO,METANO,GPL,ELETTRICO,"
                           "MISCELA,NESSUNA");
        QTest::newRow("alimentazione 1") << 28 << carburanti;
        QTest::newRow("alimentazione 2") << 29 << carburanti;
        QTest::newRow("freno di stazionamento") << 40 << QStringLiteral("PEDALE,MANO");
        QTest::newRow("4WD") << 43 << QStringLiteral("S,N");
        QTest::newRow("ABS") << 44 << QStringLiteral("S,N");
        QTest::newRow("freno di soccorso")
            << 45 << QStringLiteral("NON NOTO,XX,TT,LL,HH,HT,STAZIONAMENTO,NESSUNO");
        QTest::newRow("versione") << 47 << QStringLiteral("100");
        QTest::newRow("data del formato") << 48 << QStringLiteral("02111999");
    }
    void vocabolari()
    {
        QFETCH(int, riga);
        QFETCH(QString, valori);
        QCOMPARE(Elenco(REGOLE_ACC[size_t(riga)].Ammessi).join(u','), valori);
    }

    void descrizioniDeiPesanti()
    {
        QCOMPARE(Elenco(DESCRIZIONI_PESANTI).join(u','),
                 QStringLiteral("AUTOCARRO,RIMORCHIO,SEMIRIMORCHIO,USO SPECIALE,TRASPORTO SPECIFICO,AUTOBUS,"
                                "TRATTORE STRADALE,TRATTORE PER SEMIRIMORCHIO"));
    }

    void chiaviVisivePerSezione()
    {
        const QList<std::pair<QString, int>> attese{
            {QStringLiteral("Vis_DispositiviFrenatura"),           7 },
            {QStringLiteral("Vis_Sterzo"),                         4 },
            {QStringLiteral("Vis_Visibilita"),                     5 },
            {QStringLiteral("Vis_ImpiantoElettrico"),              21},
            {QStringLiteral("Vis_AssiRuotePneumaticiSospensioni"), 3 },
            {QStringLiteral("Vis_TelaioElementiFissatiTelaio"),    7 },
            {QStringLiteral("Vis_AltriEquipaggiamenti"),           8 },
            {QStringLiteral("Vis_EffettiNocivi"),                  3 },
            {QStringLiteral("Vis_IdentificazioneVeicolo"),         6 },
            {QStringLiteral("EsitoComplessivo"),                   3 }
        };
        QList<std::pair<QString, int>> trovate;
        for (const RegolaVisivo &regola : REGOLE_VISIVI) {
            if (trovate.isEmpty() || trovate.last().first != regola.Section)
                trovate.append({regola.Section.toString(), 0});
            ++trovate.last().second;
        }
        QCOMPARE(trovate, attese);
    }

    /// Every judgement is one of three letters. What is none: who looked and when, and the outcome.
    void controlliVisivi()
    {
        using enum TipoControllo;
        const QStringList giudizi{QStringLiteral("I"), QStringLiteral("R"), QStringLiteral("A")};
        struct Altra
        {
            QString chiave;
            TipoControllo controllo;
            qint16 massimo;
            bool elenco;
        };
        QList<Altra> altre{
            {QStringLiteral("DataControlli"),      Data,  0,   false},
            {QStringLiteral("OraInizioControlli"), Ora,   0,   false},
            {QStringLiteral("OraFineControlli"),   Ora,   0,   false},
            {QStringLiteral("Operatore"),          Testo, 50,  false},
            {QStringLiteral("EsitoRevisione"),     Testo, 0,   true },
            {QStringLiteral("DataEffettiva"),      Data,  0,   false},
            {QStringLiteral("Note"),               Testo, 320, false}
        };
        for (const RegolaVisivo &regola : REGOLE_VISIVI) {
            QStringList ammessi;
            for (const QStringView uno : regola.Ammessi)
                ammessi.append(uno.toString());
            const bool altra = !altre.isEmpty() && altre.first().chiave == regola.Key;
            const Altra attesa = altra ? altre.takeFirst() : Altra{regola.Key.toString(), Testo, 0, true};
            QVERIFY2(regola.Controllo == attesa.controllo, qPrintable(attesa.chiave));
            QVERIFY2(regola.Massimo == attesa.massimo, qPrintable(attesa.chiave));
            QVERIFY2(ammessi.isEmpty() != attesa.elenco, qPrintable(attesa.chiave));
            QVERIFY2(altra || ammessi == giudizi, qPrintable(attesa.chiave));
        }
        QVERIFY(altre.isEmpty());
    }

    void dueChiaviVisiveFinisconoConUnBianco()
    {
        QStringList conBianco;
        for (const RegolaVisivo &regola : REGOLE_VISIVI) {
            if (regola.Key.endsWith(u' '))
                conBianco.append(regola.Key.toString());
        }
        QCOMPARE(conBianco, (QStringList{QStringLiteral("OrientVertAbbSx_41222 "),
                                         QStringLiteral("FissaggioBatteria_72 ")}));
    }

    /// A key spelled wrongly in a table would read as an empty value in every file, unseen.
    void ogniChiaveStaNelModello()
    {
        const ProvaAcc prova;
        const auto presente = [&prova](QStringView sezione, QStringView chiave) {
            const QByteArray testa = '[' + sezione.toLatin1() + "]\r\n";
            const QByteArray byte = prova.Buono();
            const qsizetype da = byte.indexOf(testa);
            const QByteArray tratto = byte.mid(da, byte.indexOf("\r\n[", da) - da);
            return da >= 0 && tratto.contains("\r\n" + chiave.trimmed().toLatin1() + '=');
        };
        for (const RegolaCampo &regola : REGOLE_ACC)
            QVERIFY2(presente(regola.Section, regola.Key), qPrintable(regola.Key.toString()));
        for (const RegolaVisivo &regola : REGOLE_VISIVI)
            QVERIFY2(presente(regola.Section, regola.Key), qPrintable(regola.Key.toString()));
    }
};

QTEST_GUILESS_MAIN(tst_formato_acc)
#include "tst_formato_acc.moc"
