#pragma once

#include "devices/Porta.h"

#include <QList>

// A port without a device: a test puts in what arrives and reads what was written.
class PortaDiProva final : public Porta {
public:
    explicit PortaDiProva(Linea tipo) : linea(tipo) {}

    [[nodiscard]] bool aperta() const override { return m_aperta; }
    bool apri() override {
        if (guastoInApertura.numero != 0) {
            impostaGuasto(guastoInApertura);
            return false;
        }
        impostaGuasto({});
        m_aperta = true;
        ++aperture;
        return true;
    }
    bool chiudi() override {
        m_aperta = false;
        m_arrivati.clear();
        return true;
    }
    QByteArray leggiTutto() override { return std::exchange(m_arrivati, {}); }
    bool scrivi(const QByteArray& dati) override {
        if (m_aperta)
            scritti += dati;
        return m_aperta;
    }

    // What the device sends; lost when the port is closed.
    void arriva(const QByteArray& dati) {
        if (!m_aperta)
            return;
        m_arrivati += dati;
        Q_EMIT ricevuto();
    }

    Linea linea;
    GuastoPorta guastoInApertura;
    QByteArray scritti;
    int aperture = 0;

private:
    bool m_aperta = false;
    QByteArray m_arrivati;
};

// Gives test ports for as long as it lives. The ports belong to who asked for them.
class FabbricaDiProva final : public FabbricaPorte {
public:
    FabbricaDiProva() { installa(this); }
    ~FabbricaDiProva() override { installa(nullptr); }
    Q_DISABLE_COPY_MOVE(FabbricaDiProva)

    [[nodiscard]] std::unique_ptr<Porta> crea(Linea linea) const override {
        auto porta = std::make_unique<PortaDiProva>(linea);
        m_porte << porta.get();
        return porta;
    }
    [[nodiscard]] const QList<PortaDiProva*>& porte() const { return m_porte; }
    [[nodiscard]] PortaDiProva* ultima() const { return m_porte.last(); }

private:
    mutable QList<PortaDiProva*> m_porte;
};
