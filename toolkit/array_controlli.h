// A control array: members of one kind under one name, by index. Member 0 is placed at design time; the
// others are made while the form runs, in the size and type of member 0.
#pragma once

#include "platform/errore_esecuzione.h"
#include "platform/tipi.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QWidget;

template <typename T>
class ArrayControlli
{
public:
    explicit ArrayControlli(const QString &nome) : m_nome(nome) {}

    /// Empties the array and binds it to a window, at the loading of its form.
    /// @param alNuovo called for each new member, to bind its events.
    void Inizia(QWidget *finestra, std::function<void(T &, qint16)> alNuovo = {})
    {
        m_membri.clear();
        m_finestra = finestra;
        m_alNuovo = std::move(alNuovo);
    }

    /// Makes a member; it stays hidden.
    /// @throws ErroreEsecuzione 380 for one that exists, or below 0.
    T &Carica(qint16 indice)
    {
        if (indice < 0 || Esiste(indice))
            Solleva(NumeroErrore::ValoreProprietaErrato);
        const auto posto = static_cast<size_t>(indice);
        if (posto >= m_membri.size())
            m_membri.resize(posto + 1);
        auto membro = std::make_unique<T>(m_finestra, QStringLiteral("%1_%2").arg(m_nome).arg(indice));
        membro->Visible(false);
        if (m_membri.front())
            membro->Copia_Disegno(*m_membri.front());
        m_membri[posto] = std::move(membro);
        if (m_alNuovo)
            m_alNuovo(*m_membri[posto], indice);
        return *m_membri[posto];
    }

    void Scarica(qint16 indice)
    {
        (*this)[indice];
        m_membri[static_cast<size_t>(indice)].reset();
        while (!m_membri.empty() && !m_membri.back())
            m_membri.pop_back();
    }

    /// @throws ErroreEsecuzione 9 when there is no such member.
    T &operator[](qint16 indice) const
    {
        const auto posto = static_cast<size_t>(indice);
        if (indice < 0 || posto >= m_membri.size() || !m_membri[posto])
            Solleva(NumeroErrore::IndiceFuoriIntervallo);
        return *m_membri[posto];
    }

    /// Highest index; -1 for an empty array.
    qint16 UBound() const { return static_cast<qint16>(static_cast<qint64>(m_membri.size()) - 1); }
    bool Esiste(qint16 indice) const
    {
        return indice >= 0 && static_cast<size_t>(indice) < m_membri.size() &&
               m_membri[static_cast<size_t>(indice)] != nullptr;
    }

private:
    QString m_nome;
    QWidget *m_finestra = nullptr;
    std::function<void(T &, qint16)> m_alNuovo;
    std::vector<std::unique_ptr<T>> m_membri;
};
