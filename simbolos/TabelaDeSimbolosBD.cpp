// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/TabelaDeSimbolosBD.h"

#include "plataforma/ClientDataSet.h"
#include "simbolos/SimboloComposto.h"
#include "simbolos/SimboloFonte.h"

#include <utility>

namespace Sibrel
{

namespace
{

constinit TModulo Modulo("TabelaDeSimbolosBD", nullptr, nullptr);

// The columns that symbols are made of, found once for all rows.
class TLeitorDeSimbolos
{
public:
    explicit TLeitorDeSimbolos(const TClientDataSet &DataSet)
        : FCaracter(DataSet.FieldByName(u"CARACTER"))
        , FProporcao(DataSet.FieldByName(u"PROPORCAO"))
        , FNomeDaFonte(DataSet.FieldByName(u"FONTE"))
    {
        FFonte.AtribuirCharset(TFont::CharsetPadrao);
    }

    std::unique_ptr<TSimboloFonte> Ler()
    {
        auto Simbolo = std::make_unique<TSimboloFonte>();
        Simbolo->Caracter = static_cast<std::uint8_t>(FCaracter.AsInteger() & 0xFF);
        Simbolo->Proporcao = FProporcao.AsFloat();
        // One font for as long as its name stays the same: what is remembered of its glyphs is then shared.
        FFonte.AtribuirName(FNomeDaFonte.AsString());
        Simbolo->Fonte = FFonte;
        return Simbolo;
    }

private:
    const TField &FCaracter;
    const TField &FProporcao;
    const TField &FNomeDaFonte;
    TFont FFonte;
};

// Lays the rows of one object type that follow each other on top of each other.
class TAgrupador
{
public:
    explicit TAgrupador(TListaSimbolo &Simbolos)
        : FSimbolos(Simbolos)
    {
    }

    void Juntar(std::unique_ptr<ISimbolo> Simbolo, bool ContinuaNaProxima)
    {
        if (ContinuaNaProxima && FComposto == nullptr) {
            auto Novo = std::make_unique<TSimboloComposto>();
            FComposto = Novo.get();
            FSimbolos.Add(std::move(Novo));
        }
        (FComposto != nullptr ? FComposto->Lista : FSimbolos).Add(std::move(Simbolo));
    }
    void Fechar() noexcept { FComposto = nullptr; }

private:
    TListaSimbolo &FSimbolos;
    TSimboloComposto *FComposto = nullptr;
};

} // namespace

TModulo &ModuloTabelaDeSimbolosBD() noexcept
{
    return Modulo;
}

TTabelaDeSimbolosBD::TTabelaDeSimbolosBD(QWidget *Dono)
    : TTabelaDeSimbolos(Dono)
{
}

TTabelaDeSimbolosBD::~TTabelaDeSimbolosBD() = default;

std::unique_ptr<ISimbolo> TTabelaDeSimbolosBD::LerSimboloBD(const TClientDataSet &DataSet) const
{
    return TLeitorDeSimbolos(DataSet).Ler();
}

void TTabelaDeSimbolosBD::ImportarBD(TClientDataSet &DataSet)
{
    Simbolos().Clear();
    DataSet.First();
    if (DataSet.RecordCount() == 0)
        return; // nothing is looked up, so that a set without rows needs no columns either
    TLeitorDeSimbolos Leitor(DataSet);
    const TField &CampoDoTipo = DataSet.FieldByName(u"IDTIPOBJ");
    TAgrupador Agrupador(Simbolos());
    QString Tipo = CampoDoTipo.AsString();
    while (!DataSet.Eof()) {
        std::unique_ptr<ISimbolo> Simbolo = Leitor.Ler();
        DataSet.Next();
        QString Seguinte = CampoDoTipo.AsString(); // at the last row its own
        Agrupador.Juntar(std::move(Simbolo), Seguinte == Tipo && !DataSet.Eof());
        if (Seguinte != Tipo)
            Agrupador.Fechar();
        Tipo = std::move(Seguinte);
    }
}

} // namespace Sibrel
