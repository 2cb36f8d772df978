#include "event/frmUtilityPMI.h"
#include "event/Guida.h"

class tst_Media final : public ProvaConProgramma {
    Q_OBJECT

private Q_SLOTS:
    void calcoli();
};

void tst_Media::calcoli() {
    frmUtilityPMI finestra;
    mostra(&finestra);
    // What is typed for the distance, the time and the speed; the one asked for; what it becomes, or empty
    // when that cannot be told.
    const struct {
        const char *s, *t, *v;
        QChar chiesto;
        const char* atteso;
    } casi[] = {
        {"", "00:12:00", "50", 'S', "10"},
        {"", "00:20:00", "45,5", 'S', "15,1666666666667"},
        {"", "00:61:00", "50", 'S', ""},
        {"", "00:12:00", "", 'S', ""},
        {"7,35", "", "42", 'T', "00:10:30"},
        {"61x", "", "6a0", 'T', "01:01:00"},
        {"10", "", "0", 'T', ""},
        {",", "", "50", 'T', ""},
        {"100", "", "1", 'T', ""},
        {"10", "00:12:00", "", 'V', "50"},
        {"10", "00:00:00", "", 'V', ""},
    };
    for (const auto& caso : casi) {
        const QString dati = QString("s=%1;t=%2;v=%3").arg(caso.s, caso.t, caso.v);
        compila(&finestra, dati);
        if (!*caso.atteso)
            dialoghi().attendiMessaggio("Impossibile Calcolare", "Dati Mancanti o Incorretti");
        premi(&finestra, QString("cmd") + caso.chiesto);
        QVERIFY2(dialoghi().finite(), qPrintable(dati));
        if (*caso.atteso)
            QCOMPARE(contenuto(&finestra, caso.chiesto.toLower()), QString(caso.atteso));
    }
}

PROVA_FINESTRE(tst_Media)
#include "tst_Media.moc"
