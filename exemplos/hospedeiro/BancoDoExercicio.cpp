// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/BancoDoExercicio.h"

#include "arvore/ParseTableXMLMapeada.h"
#include "arvore/TreeViewXMLBD.h"
#include "plataforma/ClientDataSet.h"
#include "plataforma/CursorDeTela.h"
#include "simbolos/TabelaDeSimbolosBD.h"

#include <QDir>
#include <QScopeGuard>
#include <QUrl>
#include <QUrlQuery>

#include <memory>
#include <utility>

namespace Hospedeiro
{

using namespace Sibrel;

namespace
{

QString Texto(const char *Portugues)
{
    return QString::fromUtf8(Portugues);
}

bool DeServidor(const QString &Endereco)
{
    return Endereco.contains(QLatin1String("://"));
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

QString NomeDoBanco(const QString &Endereco)
{
    if (!DeServidor(Endereco))
        return Endereco;
    const QUrl Url(Endereco);
    QString Servidor = QUrlQuery(Url).queryItemValue(Texto("host"), QUrl::FullyDecoded);
    if (Servidor.isEmpty())
        Servidor = Url.host();
    const QString Banco = Url.path(QUrl::FullyDecoded).mid(1);
    const bool Local = Servidor.isEmpty() || Servidor.startsWith(u'/'); // a folder is that of a socket
    return Texto("%1 em %2").arg(Banco, Local ? Texto("servidor local") : Servidor);
}

TBancoDoExercicio::TBancoDoExercicio(const QString &Endereco)
    : FConexao(Endereco)
{
    FConexao.Open();
}

QString TBancoDoExercicio::LugarDasFontes() const
{
    return DeServidor(Endereco()) ? QDir::current().filePath(Texto("banco")) : Endereco();
}

void TBancoDoExercicio::LerSimbolos(TTabelaDeSimbolosBD &Tabela)
{
    TClientDataSet Dados;
    Dados.Open(FConexao, Texto("SELECT * FROM SIMBOLOS ORDER BY ORDEM"));
    Tabela.ImportarBD(Dados);
    Tabela.AtribuirListaDeRotulos(RotulosDosSimbolos(Dados));
}

void TBancoDoExercicio::CarregarUnidades(TTreeViewXMLBD &Arvore)
{
    auto Unidades = std::make_unique<TParseTableXMLMapeada>(MapaDasUnidades(),
                                                            Texto("SELECT * FROM UNIDADES ORDER BY ID"));
    auto Tabelas = std::make_unique<TParseTableXMLList>(&FConexao);
    Tabelas->Add(std::move(Unidades));
    auto Anteriores = Arvore.AtribuirParses(std::move(Tabelas));
    const QString Raiz = Arvore.ElementoRaiz;
    if (Raiz.isEmpty()) // accepts any: but this document has to have one
        Arvore.ElementoRaiz = Texto("OrdemDeBatalha");
    const auto Voltar = qScopeGuard([&] { Arvore.ElementoRaiz = Raiz; });
    try {
        Arvore.Executar();
    } catch (...) {
        // The tree leaves the hourglass to whoever tells the error.
        AtribuirCursorDeTela(TCursorDeTela::Padrao);
        Tabelas = Arvore.AtribuirParses(std::move(Anteriores));
        throw;
    }
    Arvore.AtribuirDataBase(&FConexao);
}

} // namespace Hospedeiro
