#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantHash>
#include <optional>

namespace tomvera {

class Archivio;

// Literal values of the reservation records.
namespace tipomovimento {
inline const QString PrenotazioneCamera = QStringLiteral("PrenotazioneCamera");
inline const QString Accessori = QStringLiteral("Accessori");
inline const QString Acconto = QStringLiteral("Acconto");
} // namespace tipomovimento

// A "PrenotazioneCamera" row: one stay in one room, with its own dates and price.
struct RigaCamera
{
    int IndiceRiga = 0;
    QString NroCamera;
    QString CodiceTipologiaCamera;
    QDate Dal; // arrival
    QDate Al; // departure: the first night not stayed
    double Avere = 0; // price of the room for the whole stay
    double Iva = 0;
    QString Listino;
    int CheckInSky = 0;
    int CheckOutSky = 0;
};

// An "Accessori" row: an extra charged to the reservation.
struct RigaAccessorio
{
    int IndiceRiga = 0;
    qint64 IndiceAccessorio = 0;
    QDate Data;
    QString TipoAccessorio;
    QString Descrizione;
    double Qta = 0;
    double Avere = 0; // amount of the line, quantity included
    double Iva = 0;
    QString NroCamera;
};

// An "Acconto" row: a deposit. Written by the deposit screen, never by the reservation's save.
struct Acconto
{
    qint64 Indice = 0;
    QDate Data;
    QString Descrizione;
    double Dare = 0;
    bool EffettuataFatturaRicevuta = false;
};

// A guest of the reservation: a copy of the guest card plus what belongs to the stay. The fields are those of
// TabellaAnagraficheAssociatePrenotazioni, by name.
struct OspitePrenotazione
{
    QVariantHash campi;

    QVariant valore(const QString& campo) const { return campi.value(campo); }
    QString testo(const QString& campo) const { return campi.value(campo).toString(); }
    QDate data(const QString& campo) const;
    void imposta(const QString& campo, const QVariant& v) { campi.insert(campo, v); }

    QString RagSociale() const { return testo(QStringLiteral("RagSociale")); }
    QString NroCameraCliente() const { return testo(QStringLiteral("NroCameraCliente")); }
    int NroArrivo() const { return campi.value(QStringLiteral("NroArrivo")).toInt(); }
    // Null is read from the arrival number: a guest with a number counts as arrived.
    bool Arrivato() const;
};

// The fields written for a guest on save, in table order (PersoneAssociate is left out on purpose: a save
// empties it until the next printing of the arrival forms).
const QStringList& campiOspitePrenotazione();

struct Prenotazione
{
    qint64 Indice = 0; // 0 while new
    int NumeroPrenotazione = 0;
    QDate DataPrenotazione;
    QString NotePrenotazione;
    QString ListinoCamere;
    double TotaleAcconto = 0;
    double Totale = 0;
    double Abbuono = 0;
    QString Stato;
    bool Saldato = false;
    QString RiferimentoDoc;
    QDate RiferimentoData;
    QString RiferimentoNumero;
    QString CodiceTourOperator;
    QString TourOperator;
    bool PrezziACamera = true;
    bool PrezziAPersona = false;
    bool PrenotazioneChiusa = false;
    QString CodiceAzienda;

    QList<RigaCamera> camere;
    QList<RigaAccessorio> accessori;
    QList<OspitePrenotazione> ospiti;
};

// Sums over the movements of a reservation: deposits (Dare) and rooms plus extras (Avere).
struct TotaliMovimenti
{
    double SommaDare = 0;
    double SommaAvere = 0;
};

// Reading and writing reservations. A save rewrites header, room rows, extras and guests in one transaction:
// all or nothing. Deposits and everything outside these tables are left alone.
class ArchivioPrenotazioni
{
public:
    explicit ArchivioPrenotazioni(Archivio& archivio);

    // The header with its room rows, extras and guests; nullopt when the reservation doesn't exist.
    std::optional<Prenotazione> carica(qint64 indice);
    QList<RigaCamera> caricaCamere(qint64 indice);
    QList<RigaAccessorio> caricaAccessori(qint64 indice);
    QList<OspitePrenotazione> caricaOspiti(qint64 indice);
    QList<Acconto> caricaAcconti(qint64 indice);

    // Writes the whole reservation; a new one gets its Indice. False (archive unchanged) on any failure.
    bool salva(Prenotazione& prenotazione, bool multiAzienda = false);
    // Header, then every movement of every kind, then the guests. Issued documents stay.
    bool elimina(qint64 indice);
    bool esiste(qint64 indice);

    // Next human number in the calendar year of oggi (1 when the year has none).
    int CalcolaNumeroPrenotazione(const QDate& oggi);
    // True when the number may be used: unchanged on a stored reservation, or free in the year of dataPrenotazione.
    bool numeroDisponibile(qint64 indice, int numero, const QDate& dataPrenotazione);
    TotaliMovimenti totali(qint64 indice);

private:
    Archivio& m_archivio;
};

} // namespace tomvera
