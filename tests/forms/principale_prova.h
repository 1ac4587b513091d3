// The main functions of the tests of forms: the program's own application object, with a watch over its error
// box, which would otherwise wait for somebody to close it.
#pragma once

#include "toolkit/applicazione.h"

#include <QMessageBox>
#include <QTest>
#include <QTimer>

template <typename Prova>
int Principale_Prova(int argc, char **argv)
{
    Applicazione applicazione(argc, argv);
    QTimer guardia;
    QObject::connect(&guardia, &QTimer::timeout, &guardia, [] {
        if (const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
            qFatal("%s", qPrintable(box->text()));
    });
    guardia.start(200);
    Prova prova;
    return QTest::qExec(&prova, argc, argv);
}

/// Of a test that starts itself as "--racconta", on a screen of its own, to be told what stands there.
/// @param racconta what that process does.
template <typename Prova>
int Principale_Racconta(int argc, char **argv, void (*racconta)())
{
    if (argc > 1 && qstrcmp(argv[1], "--racconta") == 0) {
        const Applicazione applicazione(argc, argv);
        racconta();
        return 0;
    }
    return Principale_Prova<Prova>(argc, argv);
}
