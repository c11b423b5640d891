// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/BancoDoExercicio.h"

#include "arvore/ParseTableXMLMapeada.h"
#include "plataforma/ClientDataSet.h"
#include "simbolos/TabelaDeSimbolosBD.h"

#include <QDir>
#include <QUrl>
#include <QUrlQuery>

namespace Hospedeiro
{

using namespace Sibrel;

namespace
{

QString Texto(const char *Portugues)
{
    return QString::fromUtf8(Portugues);
}

// The rows of one object type that follow each other are one symbol: its label is that of the first.
QStringList RotulosDosSimbolos(TClientDataSet &Dados)
{
    QStringList Rotulos;
    Dados.First();
    if (Dados.Eof())
        return Rotulos;
    const TField &Rotulo = Dados.FieldByName(u"ROTULO");
    const TField &Tipo = Dados.FieldByName(u"IDTIPOBJ");
    QString Anterior;
    for (; !Dados.Eof(); Dados.Next()) {
        if (Rotulos.isEmpty() || Tipo.AsString() != Anterior)
            Rotulos += Rotulo.AsString();
        Anterior = Tipo.AsString();
    }
    return Rotulos;
}

TMapeamentoXML MapaDasUnidades()
{
    TMapeamentoXML Mapa;
    Mapa.ColunaTag = Texto("TAG");
    Mapa.ColunaNome = Texto("NOME");
    Mapa.ColunaCor = Texto("COR");
    Mapa.ColunaSimbolo = Texto("SIMBOLO");
    Mapa.ColunaLink = Texto("LINK");
    Mapa.ColunaChave = Texto("ID");
    Mapa.ColunaPai = Texto("PAI");
    Mapa.Identificacao = {{Texto("Código"), Texto("CODIGO")}, {Texto("Guarnição"), Texto("GUARNICAO")}};
    Mapa.Informacao = {{Texto("Posição"), Texto("POSICAO")},
                       {Texto("Comandante"), Texto("COMANDANTE")},
                       {Texto("Efetivo"), Texto("EFETIVO")},
                       {Texto("Prontidão"), Texto("PRONTIDAO")},
                       {Texto("Codinome"), Texto("CODINOME")}};
    return Mapa;
}

} // namespace

TBancoDoExercicio::TBancoDoExercicio(const QString &Endereco)
    : FConexao(Endereco)
{
    FConexao.Open();
}

bool TBancoDoExercicio::DeServidor() const
{
    return Endereco().contains(QLatin1String("://"));
}

QString TBancoDoExercicio::Nome() const
{
    if (!DeServidor())
        return Endereco();
    const QUrl Url(Endereco());
    QString Servidor = QUrlQuery(Url).queryItemValue(Texto("host"), QUrl::FullyDecoded);
    if (Servidor.isEmpty())
        Servidor = Url.host();
    const QString Banco = Url.path(QUrl::FullyDecoded).mid(1);
    return Servidor.isEmpty() ? Banco : Texto("%1 em %2").arg(Banco, Servidor);
}

QString TBancoDoExercicio::LugarDasFontes() const
{
    return DeServidor() ? QDir::current().filePath(Texto("banco")) : Endereco();
}

void TBancoDoExercicio::LerSimbolos(TTabelaDeSimbolosBD &Tabela)
{
    TClientDataSet Dados;
    Dados.Open(FConexao, Texto("SELECT * FROM SIMBOLOS ORDER BY ORDEM"));
    Tabela.ImportarBD(Dados);
    Tabela.AtribuirListaDeRotulos(RotulosDosSimbolos(Dados));
}

std::unique_ptr<TParseTableXML> TBancoDoExercicio::TabelaDasUnidades()
{
    return std::make_unique<TParseTableXMLMapeada>(MapaDasUnidades(),
                                                   Texto("SELECT * FROM UNIDADES ORDER BY ID"));
}

} // namespace Hospedeiro
