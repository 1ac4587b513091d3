// The descriptions of the classic set, a line a number. Who raises an error, and where it ends, is not known
// here.
#include "platform/errore_esecuzione.h"

namespace {

struct VoceErrore
{
    NumeroErrore numero;
    const char *descrizione;
};

constexpr VoceErrore DESCRIZIONI[] = {
    {NumeroErrore::Overflow,              "Overflow"                                  },
    {NumeroErrore::IndiceFuoriIntervallo, "Subscript out of range"                    },
    {NumeroErrore::TipoNonCorrispondente, "Type mismatch"                             },
    {NumeroErrore::NomeFileErrato,        "Bad file name or number"                   },
    {NumeroErrore::FileNonTrovato,        "File not found"                            },
    {NumeroErrore::DiscoPieno,            "Disk full"                                 },
    {NumeroErrore::PermessoNegato,        "Permission denied"                         },
    {NumeroErrore::PercorsoNonTrovato,    "Path not found"                            },
    {NumeroErrore::ValoreProprietaErrato, "Invalid property value"                    },
    {NumeroErrore::FormGiaVisibile,       "Form already displayed; can't show modally"},
    {NumeroErrore::ImmagineNonValida,     "Invalid picture"                           },
    {NumeroErrore::ErroreStampante,       "Printer error"                             },
    {NumeroErrore::PortaNonAperta,        "Operation valid only when the port is open"},
};

QString Descrizione_Di(NumeroErrore numero)
{
    for (const VoceErrore &voce : DESCRIZIONI) {
        if (voce.numero == numero)
            return QString::fromLatin1(voce.descrizione);
    }
    return QStringLiteral("Application-defined or object-defined error");
}

} // namespace

ErroreEsecuzione::ErroreEsecuzione(NumeroErrore numero)
    : ErroreEsecuzione(static_cast<int>(numero), Descrizione_Di(numero))
{
}

ErroreEsecuzione::ErroreEsecuzione(int numero, const QString &descrizione)
    : m_numero(numero),
      m_descrizione(descrizione),
      m_testo(QStringLiteral("%1: %2").arg(numero).arg(descrizione).toUtf8())
{
}

void Solleva(NumeroErrore numero)
{
    throw ErroreEsecuzione(numero);
}
