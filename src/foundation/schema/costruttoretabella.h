#pragma once

#include "foundation/schema/definizione.h"

#include <initializer_list>

namespace tomvera::schema {

// Builds a declaration in the order its fields are listed, several fields of one type at a time.
// The log line names a table without its "Tabella" prefix ("Controllo Tabella Anagrafiche Effettuato" for
// TabellaAnagrafiche); tables without the prefix are named as they are.
class CostruttoreTabella
{
public:
    explicit CostruttoreTabella(const char* nome)
    {
        m_tabella.nome = QLatin1String(nome);
        const QLatin1String prefisso("Tabella");
        if (m_tabella.nome.startsWith(prefisso) && m_tabella.nome.size() > prefisso.size())
            m_tabella.nomeNelRegistro = m_tabella.nome.mid(prefisso.size());
    }

    CostruttoreTabella& campo(const Campo& c)
    {
        m_tabella.campi << c;
        return *this;
    }
    CostruttoreTabella& contatore(const char* nome = "Indice") { return campo(schema::contatore(QLatin1String(nome))); }
    CostruttoreTabella& testi(std::initializer_list<const char*> nomi, int dimensione)
    {
        for (const char* n : nomi)
            campo(testo(QLatin1String(n), dimensione));
        return *this;
    }
    CostruttoreTabella& lunghi(std::initializer_list<const char*> nomi) { return molti(nomi, &lungo); }
    CostruttoreTabella& interi(std::initializer_list<const char*> nomi) { return molti(nomi, &intero); }
    CostruttoreTabella& doppi(std::initializer_list<const char*> nomi) { return molti(nomi, &doppio); }
    CostruttoreTabella& booleani(std::initializer_list<const char*> nomi) { return molti(nomi, &booleano); }
    CostruttoreTabella& date(std::initializer_list<const char*> nomi) { return molti(nomi, &dataOra); }
    CostruttoreTabella& memo(std::initializer_list<const char*> nomi)
    {
        for (const char* n : nomi)
            campo(schema::memo(QLatin1String(n)));
        return *this;
    }
    CostruttoreTabella& binari(std::initializer_list<const char*> nomi) { return molti(nomi, &binario); }

    // The old engine's primary index: on the counter it is the table's own key; on other fields it is a
    // unique index whose fields can't be null.
    CostruttoreTabella& primario(const char* nome = "PrimaryKey",
                                 std::initializer_list<const char*> campi = { "Indice" })
    {
        const QStringList elenco = lista(campi);
        for (Campo& c : m_tabella.campi) {
            if (c.tipo != Tipo::Contatore && elenco.contains(c.nome, Qt::CaseInsensitive))
                c.richiesto = true;
        }
        m_tabella.indici << indice(QLatin1String(nome), elenco, true, true);
        return *this;
    }
    CostruttoreTabella& unico(const char* nome, std::initializer_list<const char*> campi)
    {
        m_tabella.indici << indice(QLatin1String(nome), lista(campi), true);
        return *this;
    }
    CostruttoreTabella& indiceSemplice(const char* nome, std::initializer_list<const char*> campi)
    {
        m_tabella.indici << indice(QLatin1String(nome), lista(campi));
        return *this;
    }

    operator Tabella() const { return m_tabella; }

private:
    CostruttoreTabella& molti(std::initializer_list<const char*> nomi, Campo (*fabbrica)(const QString&))
    {
        for (const char* n : nomi)
            campo(fabbrica(QLatin1String(n)));
        return *this;
    }
    static QStringList lista(std::initializer_list<const char*> campi)
    {
        QStringList l;
        for (const char* c : campi)
            l << QLatin1String(c);
        return l;
    }

    Tabella m_tabella;
};

} // namespace tomvera::schema
