// The printers of the system and the target that a page is drawn on, in twips. Numbers and texts only: the
// body is Qt's print support (stampante_qt.cpp); a test draws on a target of its own.
#pragma once

#include <QString>

#include <memory>

/// A printer, or whatever else takes a page.
class OggettoStampa
{
public:
    virtual ~OggettoStampa() = default;

    virtual QString DeviceName() const = 0;

    // The paper: its size, and the part of it that the coordinates stand for.
    virtual qint32 Width() const = 0;
    virtual qint32 Height() const = 0;
    virtual qint32 ScaleLeft() const = 0;
    virtual qint32 ScaleTop() const = 0;
    virtual qint32 ScaleWidth() const = 0;
    virtual qint32 ScaleHeight() const = 0;

    // The state of the text.
    virtual void FontTransparent(bool trasparente) = 0;
    virtual void ForeColor(quint32 colore) = 0;
    virtual void FontName(const QString &nome) = 0;
    /// In points.
    virtual void FontSize(float punti) = 0;
    virtual void FontBold(bool grassetto) = 0;
    virtual qint32 TextWidth(const QString &testo) = 0;
    virtual qint32 TextHeight(const QString &testo) = 0;

    /// Where the next text has its upper left corner.
    virtual void CurrentX(float x) = 0;
    virtual void CurrentY(float y) = 0;
    virtual void Print(const QString &testo) = 0;

    /// 0 is a solid line.
    virtual void DrawStyle(qint16 stile) = 0;
    /// A unit is the pixel of a printer of 300 points an inch.
    virtual void DrawWidth(qint16 spessore) = 0;
    virtual void Line(float x1, float y1, float x2, float y2, quint32 colore) = 0;

    /// Ends the page and hands it over. @throws ErroreEsecuzione 482 when the system does not take it.
    virtual void EndDoc() = 0;
};

/// The list of printers and the default one.
class SistemaStampa
{
public:
    virtual ~SistemaStampa() = default;
    /// Printers that can take a job at this moment.
    virtual qint16 Count() const = 0;
    /// @param numero from 0.
    virtual std::shared_ptr<OggettoStampa> Printers(qint16 numero) const = 0;
    /// The system's current printer; nullptr when there is none.
    virtual std::shared_ptr<OggettoStampa> Printer() const = 0;
};

/// The print system in force: one without any printer until Stampa_Imposta names another.
SistemaStampa &Stampa_Corrente();
/// The caller keeps the system alive as long as it is in force; nullptr stands for the one without printers.
void Stampa_Imposta(SistemaStampa *sistema);
