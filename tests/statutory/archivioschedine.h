#pragma once

#include "archiviotemporaneo.h"
#include "foundation/archivio.h"

#include <QStringList>
#include <QVariantMap>

namespace tomvera::test {

// Guests of a small hotel around 5 March 2026, with their own code tables, inserted in a scrambled order:
//   reservation 10 (arrival 05/03): Rossi Mario (head), Rossi Lucia and Rossi Zoè (family, Zoè with no sex);
//   reservation 11 (05/03): a German single guest for 46 days, surname of 51 characters;
//   reservation 9 (06/03): Bianchi Anna, group head with no departure and an unknown birth place;
// and rows the declaration must not list by default: one not arrived, one arriving 07/03, one already sent.
inline qint64 inserisciOspite(Archivio& archivio, const QVariantMap& campi)
{
    QStringList nomi;
    QStringList segnaposto;
    QVariantList valori;
    for (auto i = campi.constBegin(); i != campi.constEnd(); ++i) {
        nomi << i.key();
        segnaposto << QStringLiteral("?");
        valori << i.value();
    }
    archivio.comando(QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni (")
                         + nomi.join(QLatin1Char(',')) + QStringLiteral(") VALUES (")
                         + segnaposto.join(QLatin1Char(',')) + QStringLiteral(")"),
                     valori);
    return archivio.ultimoIndiceInserito();
}

inline void codiciDiProva(Archivio& a)
{
    for (const char* t :
         { "TabellaCodiciComuni", "TabellaCodiciStati", "TabellaCodiciDocumenti", "TabellaCodiciTipoAlloggiato" })
        a.comando(QStringLiteral("DELETE FROM ") + QLatin1String(t));
    const QStringList tipi { QStringLiteral("OSPITE SINGOLO"), QStringLiteral("CAPOFAMIGLIA"),
                             QStringLiteral("CAPOGRUPPO"), QStringLiteral("FAMILIARE"),
                             QStringLiteral("MEMBRO GRUPPO") };
    for (int i = 0; i < tipi.size(); ++i)
        a.comando(QStringLiteral("INSERT INTO TabellaCodiciTipoAlloggiato (Codice, TipoAlloggiato) VALUES (?, ?)"),
                  { QString::number(16 + i), tipi.at(i) });
    const auto comune = [&](const char* codice, const char* nome, const char* provincia) {
        a.comando(QStringLiteral("INSERT INTO TabellaCodiciComuni (Codice, Comune, Provincia) VALUES (?, ?, ?)"),
                  { QLatin1String(codice), QString::fromUtf8(nome), QLatin1String(provincia) });
    };
    comune("405058091", "ROMA", "RM");
    comune("403066049", "L'AQUILA", "AQ");
    comune("405048017", "FIRENZE", "FI");
    a.comando(QStringLiteral("INSERT INTO TabellaCodiciStati (Codice, Stato) VALUES ('100000100', 'ITALIA'), "
                             "('100000216', 'GERMANIA')"));
    a.comando(QStringLiteral("INSERT INTO TabellaCodiciDocumenti (Codice, Documento) VALUES "
                             "('IDENT', 'CARTA DI IDENTITA'''), ('PASOR', 'PASSAPORTO ORDINARIO')"));
}

struct OspitiDiProva
{
    qint64 rossiMario, rossiLucia, rossiZoe, muller, bianchi, nonArrivato, dopo, giaInviato;
};

inline QVariantMap capoItaliano(qint64 prenotazione, const QString& tipo, const QString& cognome, const QString& nome)
{
    return { { QStringLiteral("IndicePrenotazioneAssociata"), prenotazione },
             { QStringLiteral("TipoDiAlloggiato"), tipo },
             { QStringLiteral("Cognome"), cognome },
             { QStringLiteral("Nome"), nome },
             { QStringLiteral("DataArrivo"), QStringLiteral("2026-03-05") },
             { QStringLiteral("DataPartenza"), QStringLiteral("2026-03-08") },
             { QStringLiteral("MaschioFemmina"), QStringLiteral("Maschio") },
             { QStringLiteral("DataNascita"), QStringLiteral("1980-01-02") },
             { QStringLiteral("LuogoNascita"), QStringLiteral("ROMA") },
             { QStringLiteral("ProvinciaDiNascita"), QStringLiteral("RM") },
             { QStringLiteral("StatoDiNascita"), QStringLiteral("ITALIA") },
             { QStringLiteral("Cittadinanza"), QStringLiteral("ITALIA") },
             { QStringLiteral("NascitaItalia"), 1 },
             { QStringLiteral("NascitaEstero"), 0 },
             { QStringLiteral("ResidenzaItaliana"), 1 },
             { QStringLiteral("ResidenzaEstera"), 0 },
             { QStringLiteral("Comune"), QStringLiteral("Roma") },
             { QStringLiteral("Provincia"), QStringLiteral("RM") },
             { QStringLiteral("Nazione"), QStringLiteral("ITALIA") },
             { QStringLiteral("Indirizzo"), QStringLiteral("Via Appia 1") },
             { QStringLiteral("TipoDocumento"), QStringLiteral("CARTA DI IDENTITA'") },
             { QStringLiteral("NroDocumento"), QStringLiteral("AX1234567") },
             { QStringLiteral("LuogoDocumento"), QStringLiteral("L'AQUILA ") },
             { QStringLiteral("DocumentoItalia"), 1 },
             { QStringLiteral("DocumentoEstero"), 0 },
             { QStringLiteral("NroCameraCliente"), QStringLiteral("101") },
             { QStringLiteral("Arrivato"), 1 } };
}

inline OspitiDiProva ospitiDiProva(Archivio& a)
{
    codiciDiProva(a);
    OspitiDiProva o {};

    QVariantMap bianchi
        = capoItaliano(9, QStringLiteral("CAPOGRUPPO"), QStringLiteral("Bianchi"), QStringLiteral("Anna"));
    bianchi[QStringLiteral("CodiceTipoDiAlloggiato")] = QStringLiteral("18");
    bianchi[QStringLiteral("DataArrivo")] = QStringLiteral("2026-03-06");
    bianchi[QStringLiteral("DataPartenza")] = QVariant();
    bianchi[QStringLiteral("MaschioFemmina")] = QStringLiteral("Femmina");
    bianchi[QStringLiteral("DataNascita")] = QStringLiteral("1990-08-15");
    bianchi[QStringLiteral("LuogoNascita")] = QStringLiteral("Atlantide");
    bianchi[QStringLiteral("ProvinciaDiNascita")] = QStringLiteral("FI");
    bianchi[QStringLiteral("NroDocumento")] = QStringLiteral("CA00000AA");
    bianchi[QStringLiteral("LuogoDocumento")] = QStringLiteral("Firenze ");
    o.bianchi = inserisciOspite(a, bianchi);

    QVariantMap zoe = capoItaliano(10, QStringLiteral("FAMILIARE"), QStringLiteral("Rossi"), QString::fromUtf8("Zoè"));
    zoe[QStringLiteral("CodiceTipoDiAlloggiato")] = QStringLiteral("19");
    zoe[QStringLiteral("CapoGruppoFamiglia")] = QStringLiteral("Rossi Mario");
    zoe[QStringLiteral("OrdinamentoTipoAlloggiato")] = 2;
    zoe[QStringLiteral("MaschioFemmina")] = QString();
    zoe[QStringLiteral("DataNascita")] = QStringLiteral("2015-07-08");
    zoe[QStringLiteral("LuogoNascita")] = QStringLiteral("Roma");
    zoe[QStringLiteral("NascitaItalia")] = 0;
    zoe[QStringLiteral("TipoDocumento")] = QString();
    zoe[QStringLiteral("NroDocumento")] = QString();
    zoe[QStringLiteral("LuogoDocumento")] = QString();
    o.rossiZoe = inserisciOspite(a, zoe);

    QVariantMap muller = capoItaliano(11, QStringLiteral("OSPITE SINGOLO"),
                                      QString::fromUtf8("Müller-Lüdenscheidt von Hohenzollern-Sigmaringen-XY"),
                                      QString::fromUtf8("Jürgen"));
    muller[QStringLiteral("CodiceTipoDiAlloggiato")] = QStringLiteral("16");
    muller[QStringLiteral("DataPartenza")] = QStringLiteral("2026-04-20");
    muller[QStringLiteral("DataNascita")] = QStringLiteral("1970-12-31");
    muller[QStringLiteral("LuogoNascita")] = QStringLiteral("Monaco di Baviera");
    muller[QStringLiteral("ProvinciaDiNascita")] = QString();
    muller[QStringLiteral("StatoDiNascita")] = QStringLiteral("GERMANIA");
    muller[QStringLiteral("Cittadinanza")] = QStringLiteral("Germania");
    muller[QStringLiteral("NascitaItalia")] = 0;
    muller[QStringLiteral("NascitaEstero")] = 1;
    muller[QStringLiteral("ResidenzaItaliana")] = 0;
    muller[QStringLiteral("ResidenzaEstera")] = 1;
    muller[QStringLiteral("Comune")] = QStringLiteral("Berlin");
    muller[QStringLiteral("Provincia")] = QString();
    muller[QStringLiteral("Nazione")] = QStringLiteral("GERMANIA");
    muller[QStringLiteral("TipoDocumento")] = QStringLiteral("PASSAPORTO ORDINARIO");
    muller[QStringLiteral("NroDocumento")] = QStringLiteral("C01X00T47");
    muller[QStringLiteral("LuogoDocumento")] = QStringLiteral("GERMANIA");
    muller[QStringLiteral("DocumentoItalia")] = 0;
    muller[QStringLiteral("DocumentoEstero")] = 1;
    o.muller = inserisciOspite(a, muller);

    QVariantMap lucia = capoItaliano(10, QStringLiteral("FAMILIARE"), QStringLiteral("Rossi"), QStringLiteral("Lucia"));
    lucia[QStringLiteral("CodiceTipoDiAlloggiato")] = QStringLiteral("19");
    lucia[QStringLiteral("CapoGruppoFamiglia")] = QStringLiteral("Rossi Mario");
    lucia[QStringLiteral("OrdinamentoTipoAlloggiato")] = 1;
    lucia[QStringLiteral("MaschioFemmina")] = QStringLiteral("Femmina");
    lucia[QStringLiteral("DataNascita")] = QStringLiteral("1982-05-06");
    lucia[QStringLiteral("LuogoNascita")] = QStringLiteral("L'Aquila");
    lucia[QStringLiteral("ProvinciaDiNascita")] = QStringLiteral("AQ");
    // A member's own document never reaches the file.
    lucia[QStringLiteral("TipoDocumento")] = QStringLiteral("PASSAPORTO ORDINARIO");
    lucia[QStringLiteral("NroDocumento")] = QStringLiteral("YA7654321");
    lucia[QStringLiteral("LuogoDocumento")] = QStringLiteral("ROMA");
    o.rossiLucia = inserisciOspite(a, lucia);

    QVariantMap mario
        = capoItaliano(10, QStringLiteral("CAPOFAMIGLIA"), QStringLiteral("Rossi"), QStringLiteral("Mario"));
    mario[QStringLiteral("CodiceTipoDiAlloggiato")] = QStringLiteral("17");
    o.rossiMario = inserisciOspite(a, mario);

    QVariantMap nonArrivato
        = capoItaliano(13, QStringLiteral("OSPITE SINGOLO"), QStringLiteral("Neri"), QStringLiteral("Ugo"));
    nonArrivato[QStringLiteral("Arrivato")] = 0;
    o.nonArrivato = inserisciOspite(a, nonArrivato);

    QVariantMap dopo
        = capoItaliano(14, QStringLiteral("OSPITE SINGOLO"), QStringLiteral("Gialli"), QStringLiteral("Ivo"));
    dopo[QStringLiteral("DataArrivo")] = QStringLiteral("2026-03-07");
    o.dopo = inserisciOspite(a, dopo);

    QVariantMap inviato
        = capoItaliano(12, QStringLiteral("OSPITE SINGOLO"), QStringLiteral("Verdi"), QStringLiteral("Paolo"));
    inviato[QStringLiteral("StatoInvioTelematico")] = QStringLiteral("Creato il 01/03/2026 alle 10:00:00");
    o.giaInviato = inserisciOspite(a, inviato);
    return o;
}

} // namespace tomvera::test
