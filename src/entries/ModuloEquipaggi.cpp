#include "entries/ModuloEquipaggi.h"

#include "common/Campi.h"
#include "common/Dialoghi.h"
#include "common/Funzioni.h"
#include "common/Public.h"
#include "common/Subroutine.h"
#include "common/Valori.h"
#include "entries/ElencoIscritti.h"
#include "entries/frmRicercaAnagrafica.h"

#include <algorithm>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStyle>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

bool numeroValido(const QString& numero, std::optional<int> attuale = std::nullopt) {
    const auto rifiuta = [](const QString& motivo) {
        avverti(u"Impossbile Salvare"_s, motivo);
        return false;
    };
    switch (controllaNumero(numero, attuale)) {
        case EsitoNumero::Mancante:
            return rifiuta(u"Inserire il Numero dell'Equipaggio"_s);
        case EsitoNumero::TroppoGrande:
            return rifiuta(u"Numero dell'Equipaggio Troppo Grande"_s);
        case EsitoNumero::Assegnato:
            return rifiuta(u"Numero Già Assegnato"_s);
        case EsitoNumero::Valido:
            break;
    }
    return true;
}

bool dataVuota(const QLineEdit* campo) {
    const QString testo = campo->text();
    return std::ranges::none_of(testo, [](QChar c) { return c.isDigit(); });
}

bool controllaData(QLineEdit* campo) {
    if (dataVuota(campo))
        return true;
    if (const std::optional<QDate> data = leggiData(campo->text())) {
        campo->setText(scriviData(*data));  // a year of two digits is shown as it is taken
        return true;
    }
    avverti(u"Data NON Valida"_s, u"Data NON Valida. Controllare."_s);
    return false;
}

void riempiScelta(QComboBox* combo, const QList<VoceScelta>& voci) {
    combo->addItem(u"Nessuno"_s, 0);
    for (const VoceScelta& voce : voci)
        combo->addItem(voce.nome, voce.chiave);
}

// Moves of the focus that do not leave the field: another window, a list that opens, a menu.
bool restaNelCampo(Qt::FocusReason motivo) {
    return motivo == Qt::ActiveWindowFocusReason || motivo == Qt::PopupFocusReason ||
           motivo == Qt::MenuBarFocusReason;
}

}  // namespace

ModuloEquipaggi::ModuloEquipaggi(QWidget* padre) : Finestra(padre) {
    invioComeTab();
}

void ModuloEquipaggi::apri() {
    trovaControlli();
    collegaPulsanti();
    preparaElenco();
    preparaCampiEquipaggio();
    riempiScelte();
    riempiElenco();
    if (righe() > 0) {
        mostraRiga(0);
    } else {
        nuovo();
    }
    m_cboGruppo->setEnabled(!RagAutoManifestazione(IDMan));
    vaiAlNumero();
}

void ModuloEquipaggi::trovaControlli() {
    m_campi.emplace(this);
    m_lstEq = findChild<ElencoIscritti*>(u"lstEq"_s);
    m_txtIDEqu = findChild<QLineEdit*>(u"txtIDEqu"_s);
    m_txtNum = findChild<QLineEdit*>(u"txtNum"_s);
    m_txtAnn = findChild<QLineEdit*>(u"txtAnn"_s);
    m_cboGruppo = findChild<QComboBox*>(u"cboGruppo"_s);
    m_cmdPrimo = findChild<QPushButton*>(u"cmdPrimo"_s);
    m_cmdPrecedente = findChild<QPushButton*>(u"cmdPrecedente"_s);
    m_cmdSuccessivo = findChild<QPushButton*>(u"cmdSuccessivo"_s);
    m_cmdUltimo = findChild<QPushButton*>(u"cmdUltimo"_s);
    m_cmdNuovo = findChild<QPushButton*>(u"cmdNuovo"_s);
    m_cmdSalva = findChild<QPushButton*>(u"cmdSalva"_s);
    m_cmdAnnulla = findChild<QPushButton*>(u"cmdAnnulla"_s);
    m_cmdElimina = findChild<QPushButton*>(u"cmdElimina"_s);
}

void ModuloEquipaggi::collegaPulsanti() {
    connect(m_cmdNuovo, &QPushButton::clicked, this, &ModuloEquipaggi::nuovo);
    connect(m_cmdSalva, &QPushButton::clicked, this, &ModuloEquipaggi::salva);
    connect(m_cmdAnnulla, &QPushButton::clicked, this, &ModuloEquipaggi::annulla);
    connect(m_cmdElimina, &QPushButton::clicked, this, &ModuloEquipaggi::elimina);
    connect(findChild<QPushButton*>(u"cmdRic"_s), &QPushButton::clicked, this, &ModuloEquipaggi::copia);
    connect(findChild<QPushButton*>(u"cmdEsci"_s), &QPushButton::clicked, this, &QWidget::close);
    connect(m_cmdPrimo, &QPushButton::clicked, this, [this] { vai(0); });
    connect(m_cmdPrecedente, &QPushButton::clicked, this, [this] { vai(m_indice - 1); });
    connect(m_cmdSuccessivo, &QPushButton::clicked, this, [this] { vai(m_indice + 1); });
    connect(m_cmdUltimo, &QPushButton::clicked, this, [this] { vai(righe() - 1); });
    m_cmdPrimo->setIcon(style()->standardIcon(QStyle::SP_MediaSkipBackward));
    m_cmdPrecedente->setIcon(style()->standardIcon(QStyle::SP_MediaSeekBackward));
    m_cmdSuccessivo->setIcon(style()->standardIcon(QStyle::SP_MediaSeekForward));
    m_cmdUltimo->setIcon(style()->standardIcon(QStyle::SP_MediaSkipForward));
}

void ModuloEquipaggi::preparaElenco() {
    m_lstEq->setColumnHidden(ElencoIscritti::IDEqu, true);
    m_lstEq->header()->setSectionsClickable(true);
    m_lstEq->header()->setSectionResizeMode(ElencoIscritti::Num, QHeaderView::ResizeToContents);
    connect(m_lstEq->header(), &QHeaderView::sectionClicked, this, &ModuloEquipaggi::ordina);
    connect(m_lstEq, &QTreeWidget::itemClicked, this, [this] {
        if (!rigaScelta())
            return;
        const QScopedValueRollback guardia(m_senzaControlli, true);
        m_lstEq->setFocus(Qt::OtherFocusReason);
    });
    // For the keyboard. Queued: the list must be done with its own move before it may be taken back.
    connect(
        m_lstEq, &QTreeWidget::currentItemChanged, this,
        [this] {
            if (m_lstEq->currentIndex().row() != m_indice)
                rigaScelta();
        },
        Qt::QueuedConnection);
}

void ModuloEquipaggi::preparaCampiEquipaggio() {
    m_campi->perOgnuno([this](const ColonnaEquipaggio& colonna, QWidget* controllo) {
        auto* box = qobject_cast<QLineEdit*>(controllo);
        if (!box)
            return;
        if (colonna.soloCifre)
            applicaFiltro(box, Filtro::Cifre);
        if (colonna.completa)
            completaDa(box, u"Equipaggi"_s, QString::fromLatin1(colonna.nome));
        if (colonna.tipo == TipoDato::Data) {
            m_date << box;
        } else {
            limitaTesto(box);
        }
    });
    connect(m_txtAnn, &QLineEdit::textEdited, this, [this] { m_annoDaValidare = true; });
}

void ModuloEquipaggi::riempiScelte() {
    for (const QString& sesso : {u"cboSes"_s, u"cboSesNav"_s}) {
        if (auto* combo = findChild<QComboBox*>(sesso))
            combo->addItems({u"M"_s, u"F"_s});
    }
    riempiScelta(m_cboGruppo, elencoRaggruppamenti());
    riempiScelta(findChild<QComboBox*>(u"cboSquadra"_s), elencoSquadre());
}

void ModuloEquipaggi::riempiElenco() {
    m_lstEq->riempi(elencoEquipaggi());
    const QSignalBlocker fermo(m_lstEq);
    if (m_ordine >= 0)
        m_lstEq->sortItems(m_ordine, Qt::AscendingOrder);
}

bool ModuloEquipaggi::inserimento() const {
    return m_cmdSalva->isEnabled();
}

void ModuloEquipaggi::impostaInserimento(bool attivo) {
    for (QWidget* controllo : std::initializer_list<QWidget*>{m_cmdPrimo, m_cmdPrecedente, m_cmdSuccessivo,
                                                              m_cmdUltimo, m_cmdNuovo, m_cmdElimina, m_lstEq})
        controllo->setEnabled(!attivo);
    m_cmdSalva->setEnabled(attivo);
    m_cmdAnnulla->setEnabled(attivo);
    findChild<QGroupBox*>(u"grpEquipaggio"_s)->setTitle(attivo ? u"Nuovo Equipaggio"_s : u"Equipaggio"_s);
}

int ModuloEquipaggi::righe() const {
    return m_lstEq->topLevelItemCount();
}

bool ModuloEquipaggi::mostraRiga(int riga) {
    if (!m_txtIDEqu->text().isEmpty() && !riscrivi())
        return false;
    const int idEqu = m_lstEq->idEqu(riga);
    m_campi->mostra(leggiEquipaggio(idEqu));
    m_mostrata = m_campi->leggi();
    m_annoDaValidare = false;
    m_txtIDEqu->setText(QString::number(idEqu));
    m_indice = riga;
    m_lstEq->seleziona(riga);
    return true;
}

bool ModuloEquipaggi::vai(int riga) {
    return riga >= 0 && riga < righe() && lasciaCampo() && mostraRiga(riga);
}

bool ModuloEquipaggi::rigaScelta() {
    const int riga = m_lstEq->currentIndex().row();
    // Back on the crew on show until it has been left, also when the archive fails.
    m_lstEq->seleziona(m_indice);
    return lasciaCampo() && (riga == m_indice || mostraRiga(riga));
}

void ModuloEquipaggi::ordina(int colonna) {
    m_ordine = colonna;
    m_lstEq->header()->setSortIndicatorShown(true);
    m_lstEq->sortItems(colonna, Qt::AscendingOrder);
    // By its key: a number just typed may be that of another crew.
    m_indice = m_lstEq->rigaDi(m_txtIDEqu->text().toInt());
    if (m_indice >= 0)
        m_lstEq->seleziona(m_indice);
}

bool ModuloEquipaggi::riscrivi() {
    // A crew that was only looked at is not written.
    const SchedaEquipaggio scheda = m_campi->leggi();
    if (scheda == m_mostrata)
        return true;
    const QString numero = m_txtNum->text();
    if (!numeroValido(numero, m_lstEq->numero(m_indice))) {
        vaiAlNumero();
        return false;
    }
    aggiornaEquipaggio(m_txtIDEqu->text().toInt(), scheda);
    m_mostrata = scheda;
    m_lstEq->aggiorna(m_indice, numero.toInt(), scheda.value(u"Cog"_s) + u' ' + scheda.value(u"Nom"_s));
    return true;
}

void ModuloEquipaggi::svuota() {
    m_txtIDEqu->clear();
    m_campi->svuota();
}

void ModuloEquipaggi::vaiAlNumero() {
    const QScopedValueRollback guardia(m_senzaControlli, true);
    m_txtNum->setFocus(Qt::TabFocusReason);
    m_txtNum->selectAll();
}

void ModuloEquipaggi::nuovo() {
    if (!lasciaCampo() || (!m_txtIDEqu->text().isEmpty() && !riscrivi()))
        return;
    impostaInserimento(true);
    svuota();
    vaiAlNumero();
}

void ModuloEquipaggi::salva() {
    if (!lasciaCampo())
        return;
    if (!numeroValido(m_txtNum->text())) {
        vaiAlNumero();
        return;
    }
    const CursoreAttesa attesa;
    const int idEqu = inserisciEquipaggio(m_campi->leggi());
    riempiElenco();
    mostraRiga(m_lstEq->rigaDi(idEqu));
    impostaInserimento(false);
    vaiAlNumero();
}

void ModuloEquipaggi::annulla() {
    if (righe() == 0) {
        m_cmdSalva->setEnabled(false);
        close();
        return;
    }
    mostraRiga(m_indice);
    impostaInserimento(false);
    vaiAlNumero();
}

void ModuloEquipaggi::elimina() {
    if (m_txtIDEqu->text().isEmpty())
        return;
    const bool conferma = Dialoghi::corrente().domanda(u"Eliminare l'Equipaggio ?"_s,
                                                       u"Eliminando l'Equipaggio Verranno Cancellati Anche\n"
                                                       "Tutti i Relativi Rilevamenti Registrati.\n"
                                                       "Confermare l'Eliminazione ?"_s,
                                                       Icona::Domanda);
    if (!conferma)
        return;
    eliminaEquipaggio(m_txtIDEqu->text().toInt());
    svuota();
    const int eliminata = std::exchange(m_indice, -1);
    riempiElenco();
    if (righe() > 0)
        mostraRiga(std::max(0, eliminata - 1));
}

void ModuloEquipaggi::copia() {
    if (!lasciaCampo())
        return;
    frmRicercaAnagrafica(this).exec();
    if (const int scelto = std::exchange(IDEqu, 0); scelto != 0) {
        m_campi->mostra(copiaDaArchivio(scelto));
        m_annoDaValidare = true;
    }
}

bool ModuloEquipaggi::controllaAnno() {
    const QString testo = m_txtAnn->text().trimmed();
    const int anno = testo.toInt();
    const bool ammesso = testo.isEmpty() || annoAmmesso(anno);
    if (!ammesso)
        avverti(u"Anno NON Valido"_s, u"Anno NON Valido. Controllare."_s);
    // Passing by an unchanged year changes no group.
    if (m_annoDaValidare && RagAutoManifestazione(IDMan)) {
        const std::optional<int> gruppo = testo.isEmpty() ? std::nullopt : raggruppamentoPerAnno(anno);
        m_cboGruppo->setCurrentIndex(gruppo ? m_cboGruppo->findData(*gruppo) : -1);
    }
    return ammesso;
}

bool ModuloEquipaggi::controllaCampo(QLineEdit* campo) {
    if (campo == m_txtAnn)
        return controllaAnno();
    return !m_date.contains(campo) || controllaData(campo);
}

// The buttons and the list take no focus from the mouse, so that the field on which the operator stands is
// checked by the action itself, which a refusal then stops.
bool ModuloEquipaggi::lasciaCampo() {
    auto* campo = qobject_cast<QLineEdit*>(focusWidget());
    if (!campo || controllaCampo(campo))
        return true;
    campo->selectAll();
    return false;
}

bool ModuloEquipaggi::eventFilter(QObject* oggetto, QEvent* evento) {
    auto* campo = qobject_cast<QLineEdit*>(oggetto);
    const bool controllato = campo && (campo == m_txtAnn || m_date.contains(campo));
    if (!controllato || evento->type() != QEvent::FocusOut || m_senzaControlli || !isVisible() ||
        restaNelCampo(static_cast<QFocusEvent*>(evento)->reason()))
        return Finestra::eventFilter(oggetto, evento);
    Finestra::eventFilter(oggetto, evento);
    campo->event(evento);  // the field must have let go before the focus may come back to it
    const QScopedValueRollback guardia(m_senzaControlli, true);
    if (!controllaCampo(campo))
        tornaSu(campo);
    return true;
}

bool ModuloEquipaggi::puoChiudere() {
    if (inserimento()) {
        avverti(u"Impossibile Uscire Adesso"_s, u"Salvare o Annullare l'Inserimento dell'Equipaggio"_s);
        return false;
    }
    return m_txtIDEqu->text().isEmpty() ||
           lasciaDopo(
               [this] { return lasciaCampo() && riscrivi(); },
               [this] { return u"l'equipaggio n. %1, com'è ora nella finestra"_s.arg(m_txtNum->text()); });
}
