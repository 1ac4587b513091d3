// The picture on Qt's label, which keeps its shape in whatever place.
#include "toolkit/immagine.h"

#include "platform/errore_esecuzione.h"
#include "platform/percorsi.h"
#include "toolkit/segno_avviso.h"

#include <QFileInfo>
#include <QImageReader>
#include <QLabel>
#include <QResizeEvent>

#include <functional>

namespace {

/// A picture as large as a place lets it, in the pixels of the screen; null when it cannot be had.
using Disegno = std::function<QPixmap(QSize)>;

/// Decodes a file at the size that is shown: a decoder leaves out what a whole picture many times as large
/// would take, and nobody keeps that one.
QPixmap Leggi_Figura(const QString &file, QSize posto)
{
    QImageReader lettore(file);
    lettore.setScaledSize(lettore.size().scaled(posto, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    return QPixmap::fromImageReader(&lettore);
}

/// A picture that follows the size of its place.
class WidgetImmagine : public QLabel
{
public:
    using QLabel::QLabel;
    /// @return false when the picture cannot be had: what was shown before stays.
    bool Mostra(const Disegno &disegno)
    {
        if (!Adatta(disegno))
            return false;
        m_disegno = disegno;
        return true;
    }

protected:
    void resizeEvent(QResizeEvent *evento) override
    {
        QLabel::resizeEvent(evento);
        if (m_disegno && !size().isEmpty() && size() != m_posto) // the first show tells it the size it has
            Adatta(m_disegno);
    }

private:
    bool Adatta(const Disegno &disegno)
    {
        const qreal densita = devicePixelRatioF();
        QPixmap adattata = disegno(size() * densita);
        if (adattata.isNull())
            return false;
        adattata.setDevicePixelRatio(densita);
        setPixmap(adattata);
        m_posto = size();
        return true;
    }
    Disegno m_disegno;
    QSize m_posto; ///< that the picture was drawn for
};

} // namespace

Immagine::Immagine(QWidget *finestra, const QString &nome) : Controllo(new WidgetImmagine(finestra), nome)
{
    Fai<QLabel>([](QLabel &label) { label.setAlignment(Qt::AlignCenter); });
}

void Immagine::Picture(const QString &percorso)
{
    const QString nativo = Percorso_Nativo(percorso);
    if (!QFileInfo(nativo).isFile())
        Solleva(NumeroErrore::FileNonTrovato);
    Fai<WidgetImmagine>([&nativo](WidgetImmagine &label) {
        if (!label.Mostra([nativo](QSize posto) { return Leggi_Figura(nativo, posto); }))
            Solleva(NumeroErrore::ImmagineNonValida);
    });
}

void Immagine::Avviso()
{
    constexpr int LATO = 512; // more than the largest screen shows of it
    Fai<WidgetImmagine>([](WidgetImmagine &label) {
        label.Mostra([segno = Segno_Avviso(LATO)](QSize posto) {
            return segno.scaled(posto, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        });
    });
}

void Immagine::Testo(const QString &testo)
{
    Fai<QLabel>([&testo](QLabel &label) { label.setText(testo); });
}
