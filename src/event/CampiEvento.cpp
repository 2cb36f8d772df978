#include "event/CampiEvento.h"

#include "common/Subroutine.h"
#include "event/Manifestazione.h"

#include <QComboBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int CifreAnno = 4;
constexpr int CifreFattore = 15;

QLineEdit* campo(QWidget* finestra, const QString& nome) {
    return finestra->findChild<QLineEdit*>(nome);
}

}  // namespace

bool accettato(QWidget* finestra, const std::optional<Rifiuto>& rifiuto) {
    if (!rifiuto)
        return true;
    Dialoghi::corrente().messaggio(rifiuto->titolo, rifiuto->testo, rifiuto->icona);
    if (auto* controllo = finestra->findChild<QWidget*>(rifiuto->campo);
        controllo && !rifiuto->campo.isEmpty())
        tornaSu(controllo);
    return false;
}

void chiudiPercorso(QWidget* finestra, const QString& ultimoCampo, bool rigaAperta) {
    auto* cmdAgg = finestra->findChild<QWidget*>(u"cmdAgg"_s);
    auto* cmdMod = finestra->findChild<QWidget*>(u"cmdMod"_s);
    auto* primo = rigaAperta ? cmdMod : cmdAgg;
    QWidget::setTabOrder(finestra->findChild<QWidget*>(ultimoCampo), primo);
    QWidget::setTabOrder(primo, rigaAperta ? cmdAgg : cmdMod);
}

Elenco::Riga rigaElenco(const Prova& prova) {
    return {{prova.tip, prova.nom, prova.loc, prova.tem, prova.dat, siNo(prova.concatenata)}, prova.id};
}

Elenco::Riga rigaElenco(const Gruppo& gruppo) {
    return {{gruppo.nom, gruppo.fat, gruppo.daAnn, gruppo.aAnn}, gruppo.id};
}

Elenco::Riga rigaElenco(const Squadra& squadra) {
    return {{squadra.nom}, squadra.id};
}

CampiProva::CampiProva(QWidget* finestra)
    : QObject(finestra),
      m_pro(finestra->findChild<QComboBox*>(u"cboPro"_s)),
      m_nom(campo(finestra, u"txtNom"_s)),
      m_loc(campo(finestra, u"txtLoc"_s)),
      m_tem(campo(finestra, u"txtTem"_s)),
      m_dat(campo(finestra, u"Dat"_s)),
      m_con(finestra->findChild<QComboBox*>(u"cboCon"_s)),
      m_uscita(finestra) {
    m_pro->addItems(tipiDiProva());
    m_con->addItems({siNo(false), siNo(true)});
    limitaTesto(m_nom);
    limitaTesto(m_loc);
    m_uscita.aggiungiMascherato(m_tem, Maschera::Ora);
    m_uscita.aggiungiMascherato(m_dat, Maschera::Data);
    connect(m_pro, &QComboBox::currentTextChanged, this, &CampiProva::aggiornaConcatenazione);
}

void CampiProva::impostaAllaPartenza(bool allaPartenza) {
    m_allaPartenza = allaPartenza;
    aggiornaConcatenazione();
}

void CampiProva::aggiornaConcatenazione() {
    const bool sciolta = m_allaPartenza && m_pro->currentText() == u"CO"_s;
    if (sciolta)
        m_con->setCurrentText(siNo(false));
    m_con->setEnabled(!sciolta);
}

Prova CampiProva::leggi() const {
    return {.tip = m_pro->currentText(),
            .nom = m_nom->text(),
            .loc = m_loc->text(),
            .tem = valoreMascherato(m_tem, Maschera::Ora),
            .dat = valoreMascherato(m_dat, Maschera::Data),
            .concatenata = m_con->currentText() == siNo(true)};
}

void CampiProva::scrivi(const Prova& prova) {
    m_con->setCurrentText(siNo(prova.concatenata));
    m_pro->setCurrentText(prova.tip);
    mostraTesto(m_nom, prova.nom);
    mostraTesto(m_loc, prova.loc);
    m_tem->setText(prova.tem);
    m_dat->setText(prova.dat);
    aggiornaConcatenazione();
}

void CampiProva::azzera(bool ancheData) {
    mostraTesto(m_nom, {});
    mostraTesto(m_loc, {});
    m_tem->clear();
    if (ancheData)
        m_dat->clear();
    m_nom->setFocus();
}

void CampiProva::proponiData(const QString& data) {
    m_dat->setText(data);
}

CampiGruppo::CampiGruppo(QWidget* finestra)
    : QObject(finestra),
      m_nom(campo(finestra, u"txtNom"_s)),
      m_fat(campo(finestra, u"txtFat"_s)),
      m_daAnn(campo(finestra, u"txtDaAnn"_s)),
      m_aAnn(campo(finestra, u"txtAAnn"_s)),
      m_uscita(finestra) {
    limitaTesto(m_nom);
    limitaTesto(m_fat, CifreFattore);
    applicaFiltro(m_fat, Filtro::CifreVirgola);
    for (QLineEdit* anno : {m_daAnn, m_aAnn}) {
        applicaFiltro(anno, Filtro::Cifre);
        limitaTesto(anno, CifreAnno);
        m_uscita.aggiungi(anno, [anno] {
            const std::optional<Rifiuto> rifiuto = verificaAnno(anno->text());
            if (rifiuto)
                avverti(rifiuto->titolo, rifiuto->testo);
            return !rifiuto;
        });
    }
}

Gruppo CampiGruppo::leggi() const {
    return {.nom = m_nom->text(), .fat = m_fat->text(), .daAnn = m_daAnn->text(), .aAnn = m_aAnn->text()};
}

void CampiGruppo::scrivi(const Gruppo& gruppo) {
    mostraTesto(m_nom, gruppo.nom);
    mostraTesto(m_fat, gruppo.fat);
    mostraTesto(m_daAnn, gruppo.daAnn);
    mostraTesto(m_aAnn, gruppo.aAnn);
}

void CampiGruppo::azzera() {
    scrivi({});
    m_nom->setFocus();
}
