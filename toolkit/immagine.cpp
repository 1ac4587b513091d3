// The picture on Qt's label, which keeps its shape in whatever place.
#include "toolkit/immagine.h"

#include "platform/errore_esecuzione.h"
#include "platform/percorsi.h"
#include "toolkit/segno_avviso.h"

#include <QFileInfo>
#include <QLabel>
#include <QResizeEvent>

namespace {

/// A picture that follows the size of its place.
class WidgetImmagine : public QLabel
{
public:
    using QLabel::QLabel;
    void Mostra(const QPixmap &immagine)
    {
        m_immagine = immagine;
        Adatta();
    }

protected:
    void resizeEvent(QResizeEvent *evento) override
    {
        QLabel::resizeEvent(evento);
        Adatta();
    }

private:
    void Adatta()
    {
        if (m_immagine.isNull() || size().isEmpty())
            return;
        const qreal densita = devicePixelRatioF();
        QPixmap adattata = m_immagine.scaled(size() * densita, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        adattata.setDevicePixelRatio(densita);
        setPixmap(adattata);
    }
    QPixmap m_immagine;
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
    const QPixmap immagine(nativo);
    if (immagine.isNull())
        Solleva(NumeroErrore::ImmagineNonValida);
    Fai<WidgetImmagine>([&immagine](WidgetImmagine &label) { label.Mostra(immagine); });
}

void Immagine::Avviso()
{
    constexpr int LATO = 512; // more than the largest screen shows of it
    Fai<WidgetImmagine>([](WidgetImmagine &label) { label.Mostra(Segno_Avviso(LATO)); });
}

void Immagine::Testo(const QString &testo)
{
    Fai<QLabel>([&testo](QLabel &label) { label.setText(testo); });
}
