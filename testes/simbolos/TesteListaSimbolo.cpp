// SPDX-License-Identifier: LGPL-2.1-or-later
// The list of symbols, the registry of their kinds, their copies, the module.
#include "comum/Erros.h"
#include "registro/Sibrel.h"
#include "simbolos/AjusteDeGlifo.h"
#include "simbolos/CacheDePinturas.h"
#include "simbolos/SimbolosDeTeste.h"
#include "simbolos/TabelaDeSimbolos.h"
#include "simbolos/TratadorDeSimbolo.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

class TTratadorDoHospedeiro : public ComClasse<TTratadorDoHospedeiro, TTratadorDeSimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TTratadorDoHospedeiro";
    using ComClasse::ComClasse;
    void Ler(TArquivoDeLeitura &Arquivo, ISimbolo &) override { Arquivo.ProximaLinha(); }
    void Gravar(TArquivoDeGravacao &Arquivo, const ISimbolo &) override { Arquivo.ProximaLinha(); }
};

class TFonteDerivada : public ComClasse<TFonteDerivada, TSimboloFonte>
{
public:
    static constexpr const char *NomeDaClasse = "TFonteDerivada";
};

const TRefTratador RefTratador = TRefTratador::De<TTratadorDoHospedeiro>();
const TRefSimbolo RefSimbolo = TRefSimbolo::De<TSimboloDoHospedeiro>();

std::unique_ptr<TSimboloDoHospedeiro> DoHospedeiro(int Valor)
{
    auto Simbolo = std::make_unique<TSimboloDoHospedeiro>();
    Simbolo->Valor = Valor;
    return Simbolo;
}

// The values of the host's symbols of a list, in order.
QList<int> Valores(const TListaSimbolo &Lista)
{
    QList<int> Resultado;
    for (const auto &Simbolo : Lista)
        Resultado << dynamic_cast<TSimboloDoHospedeiro &>(*Simbolo).Valor;
    return Resultado;
}

} // namespace

class TesteListaSimbolo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QCOMPARE(TSimboloDoHospedeiro::Vivos, 0); }
    void cleanup() { QCOMPARE(TSimboloDoHospedeiro::Vivos, 0); }

    void AcrescentaInsereETira();
    void AtribuirDestroiOQueEstava();
    void ExtrairNaoDestroi();
    void IndiceForaDaListaNaoMudaNada();
    void AcrescentarListaFazCopiasFundas();
    void AcrescentarAPropriaListaDobra();
    void SoDoChangeAvisa();

    void OsTresTiposNaOrdemDeRegistro();
    void NomeEProcuradoSemCaixa();
    void NomeDesconhecidoDeixaOSimboloComoEstava();
    void ClasseEProcuradaExatamente();
    void ClasseDesconhecidaDeixaAsSaidas();
    void OPrimeiroRegistradoComAClasseVale();
    void NomeRepetidoEErroEOPrimeiroFica();
    void RemoverERegistrarDeNovo();
    void RemoverAusenteNaoFazNada();

    void FonteNovaECopia();
    void GraficoCopiadoDepoisDeApagadoFicaComOSeu();
    void CompostoCopiadoLiberaAsSuasPartes();
    void CompostoDeSiMesmoFicaComoEsta();
    void CopiaFazExatamenteAClasse();
    void CopiarDeOutraClasseERecusado();

    void ModuloParadoRecusaEDepoisVolta();
};

void TesteListaSimbolo::AcrescentaInsereETira()
{
    TListaSimbolo Lista;
    QCOMPARE(Lista.Add(DoHospedeiro(1)), 0);
    QCOMPARE(Lista.Add(DoHospedeiro(3)), 1);
    Lista.Insert(1, DoHospedeiro(2));
    Lista.Insert(3, DoHospedeiro(4));
    QCOMPARE(Valores(Lista), (QList<int>{1, 2, 3, 4}));
    QCOMPARE(Lista.First(), Lista.ObterSimbolo(0));
    QCOMPARE(Lista.Last(), Lista.ObterSimbolo(3));
    Lista.Delete(0);
    QCOMPARE(Valores(Lista), (QList<int>{2, 3, 4}));
    ISimbolo *Do3 = Lista.ObterSimbolo(1);
    QCOMPARE(Lista.IndexOf(Do3), 1);
    QCOMPARE(Lista.Remove(Do3), 1);
    QCOMPARE(Lista.Remove(Do3), -1);
    QCOMPARE(Lista.IndexOf(Do3), -1);
    QCOMPARE(Valores(Lista), (QList<int>{2, 4}));
    QCOMPARE(TSimboloDoHospedeiro::Vivos, 2);
    Lista.Clear();
    QCOMPARE(Lista.Count(), 0);
}

void TesteListaSimbolo::AtribuirDestroiOQueEstava()
{
    TListaSimbolo Lista;
    Lista.Add(DoHospedeiro(1));
    Lista.Add(DoHospedeiro(2));
    Lista.AtribuirSimbolo(0, DoHospedeiro(9));
    QCOMPARE(Valores(Lista), (QList<int>{9, 2}));
    QCOMPARE(TSimboloDoHospedeiro::Vivos, 2);
}

void TesteListaSimbolo::ExtrairNaoDestroi()
{
    TListaSimbolo Lista;
    Lista.Add(DoHospedeiro(1));
    ISimbolo *Simbolo = Lista.First();
    const std::unique_ptr<ISimbolo> Fora = Lista.Extract(Simbolo);
    QCOMPARE(Fora.get(), Simbolo);
    QCOMPARE(Lista.Count(), 0);
    QCOMPARE(TSimboloDoHospedeiro::Vivos, 1);
    QVERIFY(!Lista.Extract(Simbolo));
}

void TesteListaSimbolo::IndiceForaDaListaNaoMudaNada()
{
    TListaSimbolo Lista;
    const auto Recusa = [&Lista](int Indice, const auto &Operacao) {
        const auto Erro = ErroDe<EListError>(Operacao);
        QCOMPARE(Erro.Message, QStringLiteral("Índice de lista fora dos limites (%1)").arg(Indice));
        QCOMPARE(Lista.Count(), Lista.Capacity() > 0 ? 2 : 0);
    };
    Recusa(0, [&] { Lista.First(); });
    Recusa(-1, [&] { Lista.Last(); });
    Lista.Add(DoHospedeiro(1));
    Lista.Add(DoHospedeiro(2));
    for (const int Indice : {-1, 2, 1000}) {
        Recusa(Indice, [&] { Lista.ObterSimbolo(Indice); });
        Recusa(Indice, [&] { Lista.AtribuirSimbolo(Indice, DoHospedeiro(0)); });
        Recusa(Indice, [&] { Lista.Delete(Indice); });
    }
    Recusa(-1, [&] { Lista.Insert(-1, DoHospedeiro(0)); });
    Recusa(3, [&] { Lista.Insert(3, DoHospedeiro(0)); });
    QCOMPARE(Valores(Lista), (QList<int>{1, 2}));
}

void TesteListaSimbolo::AcrescentarListaFazCopiasFundas()
{
    TListaSimbolo Origem;
    Origem.Add(Composto(Glifo(40, 0.5), DoHospedeiro(7)));
    TListaSimbolo Lista;
    Lista.Add(DoHospedeiro(1));
    Lista.Add(Origem);
    QCOMPARE(Lista.Count(), 2);
    QCOMPARE(Origem.Count(), 1);
    auto &Copiado = dynamic_cast<TSimboloComposto &>(*Lista.Last());
    QVERIFY(Lista.Last() != Origem.First());
    Origem.Clear();
    QCOMPARE(dynamic_cast<TSimboloFonte &>(*Copiado.Lista[0]).Caracter, std::uint8_t{40});
    QCOMPARE(dynamic_cast<TSimboloDoHospedeiro &>(*Copiado.Lista[1]).Valor, 7);
}

void TesteListaSimbolo::AcrescentarAPropriaListaDobra()
{
    TListaSimbolo Lista;
    for (const int V : {1, 2, 3})
        Lista.Add(DoHospedeiro(V));
    Lista.Add(Lista);
    QCOMPARE(Valores(Lista), (QList<int>{1, 2, 3, 1, 2, 3}));
}

void TesteListaSimbolo::SoDoChangeAvisa()
{
    TListaSimbolo Lista;
    Lista.DoChange(); // with no event attached
    QList<TListaSimbolo *> Avisos;
    Lista.AoAlterar = [&Avisos](TListaSimbolo &L) { Avisos << &L; };
    Lista.Add(DoHospedeiro(1));
    Lista.Insert(0, DoHospedeiro(2));
    Lista.AtribuirSimbolo(0, DoHospedeiro(3));
    Lista.Delete(0);
    Lista.Clear();
    QVERIFY(Avisos.isEmpty());
    Lista.DoChange();
    QCOMPARE(Avisos, QList<TListaSimbolo *>{&Lista});
}

void TesteListaSimbolo::OsTresTiposNaOrdemDeRegistro()
{
    const auto &Registros = RegistroDeTratadores().Registros();
    QVERIFY(Registros.size() >= 3);
    const char *const Esperados[][3] = {{"Fonte", "TTratadorDeSimboloFonte", "TSimboloFonte"},
                                        {"Grafico", "TTratadorDeSimboloGrafico", "TSimboloGrafico"},
                                        {"Composto", "TTratadorDeSimboloComposto", "TSimboloComposto"}};
    for (std::size_t I = 0; I < 3; ++I) {
        QCOMPARE(Registros[I].Tipo, QLatin1String(Esperados[I][0]));
        QCOMPARE(Registros[I].Tratador.Nome(), Esperados[I][1]);
        QCOMPARE(Registros[I].Simbolo.Nome(), Esperados[I][2]);
    }
}

void TesteListaSimbolo::NomeEProcuradoSemCaixa()
{
    for (const QString &Nome :
         {QStringLiteral("Grafico"), QStringLiteral("GRAFICO"), QStringLiteral("grafico")}) {
        TRefTratador Tratador;
        TRefSimbolo Simbolo;
        QVERIFY(TListaSimbolo::ObterTratadorDeSimbolo(Nome, Tratador, Simbolo));
        QVERIFY(Tratador == TRefTratador::De<TTratadorDeSimboloGrafico>());
        QVERIFY(Simbolo == TRefSimbolo::De<TSimboloGrafico>());
    }
    TListaSimbolo::RegistrarTratadorDeSimbolo(QStringLiteral("Símbolo É"), RefTratador, RefSimbolo);
    TRefTratador Tratador;
    TRefSimbolo Simbolo;
    QVERIFY(TListaSimbolo::ObterTratadorDeSimbolo(QStringLiteral("sÍMBOLO é"), Tratador, Simbolo));
    QVERIFY(!TListaSimbolo::ObterTratadorDeSimbolo(QStringLiteral("Simbolo E"), Tratador, Simbolo));
    TListaSimbolo::RemoverRegistroTratadorDeSimbolo(QStringLiteral("SÍMBOLO É"));
}

void TesteListaSimbolo::NomeDesconhecidoDeixaOSimboloComoEstava()
{
    TRefTratador Tratador = RefTratador;
    TRefSimbolo Simbolo = RefSimbolo;
    QVERIFY(!TListaSimbolo::ObterTratadorDeSimbolo(QStringLiteral("Nada"), Tratador, Simbolo));
    QVERIFY(!Tratador);
    QVERIFY(Simbolo == RefSimbolo);
    QVERIFY(!TListaSimbolo::ObterTratadorDeSimbolo(QString(), Tratador, Simbolo));
}

void TesteListaSimbolo::ClasseEProcuradaExatamente()
{
    QString Tipo;
    TRefTratador Tratador;
    QVERIFY(TListaSimbolo::ObterTratadorDeSimbolo(TRefSimbolo::De<TSimboloFonte>(), Tipo, Tratador));
    QCOMPARE(Tipo, QStringLiteral("Fonte"));
    QVERIFY(Tratador == TRefTratador::De<TTratadorDeSimboloFonte>());
    QVERIFY(!TListaSimbolo::ObterTratadorDeSimbolo(TRefSimbolo::De<TFonteDerivada>(), Tipo, Tratador));
}

void TesteListaSimbolo::ClasseDesconhecidaDeixaAsSaidas()
{
    QString Tipo = QStringLiteral("antes");
    TRefTratador Tratador = RefTratador;
    QVERIFY(!TListaSimbolo::ObterTratadorDeSimbolo(RefSimbolo, Tipo, Tratador));
    QCOMPARE(Tipo, QStringLiteral("antes"));
    QVERIFY(Tratador == RefTratador);
}

void TesteListaSimbolo::OPrimeiroRegistradoComAClasseVale()
{
    TListaSimbolo::RegistrarTratadorDeSimbolo(QStringLiteral("Segunda"), RefTratador, RefSimbolo);
    TListaSimbolo::RegistrarTratadorDeSimbolo(QStringLiteral("Primeira"), RefTratador, RefSimbolo);
    QString Tipo;
    TRefTratador Tratador;
    QVERIFY(TListaSimbolo::ObterTratadorDeSimbolo(RefSimbolo, Tipo, Tratador));
    QCOMPARE(Tipo, QStringLiteral("Segunda"));
    TListaSimbolo::RemoverRegistroTratadorDeSimbolo(QStringLiteral("Segunda"));
    QVERIFY(TListaSimbolo::ObterTratadorDeSimbolo(RefSimbolo, Tipo, Tratador));
    QCOMPARE(Tipo, QStringLiteral("Primeira"));
    TListaSimbolo::RemoverRegistroTratadorDeSimbolo(QStringLiteral("Primeira"));
}

void TesteListaSimbolo::NomeRepetidoEErroEOPrimeiroFica()
{
    const std::size_t Antes = RegistroDeTratadores().Registros().size();
    for (const QString &Nome : {QStringLiteral("Fonte"), QStringLiteral("FONTE")}) {
        const auto Erro = ErroDe<EInvalidOperation>(
            [&] { TListaSimbolo::RegistrarTratadorDeSimbolo(Nome, RefTratador, RefSimbolo); });
        QCOMPARE(Erro.Message,
                 QStringLiteral("O tratador de Símbolo para o tipo <%1> já foi registrado!!").arg(Nome));
    }
    QCOMPARE(RegistroDeTratadores().Registros().size(), Antes);
    TRefTratador Tratador;
    TRefSimbolo Simbolo;
    QVERIFY(TListaSimbolo::ObterTratadorDeSimbolo(QStringLiteral("fonte"), Tratador, Simbolo));
    QVERIFY(Simbolo == TRefSimbolo::De<TSimboloFonte>());
}

void TesteListaSimbolo::RemoverERegistrarDeNovo()
{
    TListaSimbolo::RemoverRegistroTratadorDeSimbolo(QStringLiteral("fonte"));
    QString Tipo;
    TRefTratador Tratador;
    QVERIFY(!TListaSimbolo::ObterTratadorDeSimbolo(TRefSimbolo::De<TSimboloFonte>(), Tipo, Tratador));
    TListaSimbolo::RegistrarTratadorDeSimbolo(QStringLiteral("Fonte"),
                                              TRefTratador::De<TTratadorDeSimboloFonte>(),
                                              TRefSimbolo::De<TSimboloFonte>());
    QVERIFY(TListaSimbolo::ObterTratadorDeSimbolo(TRefSimbolo::De<TSimboloFonte>(), Tipo, Tratador));
    // Registered again it stands at the end: the order of registration is put back for the other tests.
    QCOMPARE(RegistroDeTratadores().Registros().back().Tipo, QStringLiteral("Fonte"));
    ModuloTabelaDeSimbolos().Parar();
    ModuloTabelaDeSimbolos().Iniciar();
    QCOMPARE(RegistroDeTratadores().Registros().front().Tipo, QStringLiteral("Fonte"));
}

void TesteListaSimbolo::RemoverAusenteNaoFazNada()
{
    const std::size_t Antes = RegistroDeTratadores().Registros().size();
    TListaSimbolo::RemoverRegistroTratadorDeSimbolo(QStringLiteral("Nada"));
    TListaSimbolo::RegistrarTratadorDeSimbolo(QStringLiteral("Meu"), RefTratador, RefSimbolo);
    TListaSimbolo::RemoverRegistroTratadorDeSimbolo(QStringLiteral("Meu"));
    TListaSimbolo::RemoverRegistroTratadorDeSimbolo(QStringLiteral("Meu"));
    QCOMPARE(RegistroDeTratadores().Registros().size(), Antes);
}

void TesteListaSimbolo::FonteNovaECopia()
{
    TSimboloFonte Origem;
    QCOMPARE(Origem.Caracter, std::uint8_t{0});
    QCOMPARE(Origem.Proporcao, 1.0);
    QVERIFY(Origem.Fonte == TFont());
    Origem.Caracter = 200;
    Origem.Proporcao = 0.25;
    Origem.Fonte.AtribuirName(FamiliaDeSimbolos);
    Origem.Fonte.AtribuirCharset(2);
    Origem.Fonte.AtribuirSize(33);
    Origem.Fonte.AtribuirColor(clRed);
    Origem.Fonte.AtribuirOrientation(900);
    Origem.Fonte.AtribuirStyle(TFontStyle::fsItalic, true);
    TSimboloFonte Copiado;
    Copiado.Assign(Origem);
    QCOMPARE(Copiado.Caracter, std::uint8_t{200});
    QCOMPARE(Copiado.Proporcao, 0.25);
    QVERIFY(Copiado.Fonte == Origem.Fonte);
    Origem.Fonte.AtribuirSize(12);
    QCOMPARE(Copiado.Fonte.Size(), 33);
}

void TesteListaSimbolo::GraficoCopiadoDepoisDeApagadoFicaComOSeu()
{
    const QTemporaryDir Pasta;
    const QString Arquivo = Pasta.filePath(QStringLiteral("some.png"));
    QVERIFY(QFile::copy(DadoDeExemplo(QStringLiteral("imagens/amigo.png")), Arquivo));
    const auto Origem = Figura(Arquivo);
    QVERIFY(Origem->Grafico);

    TSimboloGrafico ComArquivo;
    ComArquivo.Assign(*Origem);
    QVERIFY(ComArquivo.Grafico);
    QVERIFY(ComArquivo.Grafico != Origem->Grafico);
    QCOMPARE(ComArquivo.Grafico->Width(), Origem->Grafico->Width());

    QVERIFY(QFile::remove(Arquivo));
    const auto Outro = Figura(DadoDeExemplo(QStringLiteral("imagens/ponte.bmp")));
    const TGraphic *Antes = Outro->Grafico.get();
    QVERIFY(Antes != nullptr);
    Outro->Assign(*Origem);
    QCOMPARE(Outro->Arquivo, Arquivo);
    QCOMPARE(Outro->Grafico.get(), Antes);
    TSimboloGrafico Vazio;
    Vazio.Assign(*Origem);
    QVERIFY(!Vazio.Grafico);
    QCOMPARE(Vazio.Arquivo, Arquivo);
}

void TesteListaSimbolo::CompostoCopiadoLiberaAsSuasPartes()
{
    const auto Destino = Composto(DoHospedeiro(1), DoHospedeiro(2), DoHospedeiro(3));
    const auto Origem = Composto(Composto(DoHospedeiro(5)), DoHospedeiro(6));
    QCOMPARE(TSimboloDoHospedeiro::Vivos, 5);
    Destino->Assign(*Origem);
    QCOMPARE(TSimboloDoHospedeiro::Vivos, 4);
    QCOMPARE(Destino->Lista.Count(), 2);
    auto &Dentro = dynamic_cast<TSimboloComposto &>(*Destino->Lista[0]);
    QVERIFY(&Dentro != Origem->Lista[0]);
    QCOMPARE(Valores(Dentro.Lista), QList<int>{5});
    Origem->Lista.Clear();
    QCOMPARE(Valores(Dentro.Lista), QList<int>{5});
}

void TesteListaSimbolo::CompostoDeSiMesmoFicaComoEsta()
{
    const auto Simbolo = Composto(DoHospedeiro(1), DoHospedeiro(2));
    Simbolo->Assign(*Simbolo);
    QCOMPARE(Valores(Simbolo->Lista), (QList<int>{1, 2}));
}

void TesteListaSimbolo::CopiaFazExatamenteAClasse()
{
    TFonteDerivada Origem;
    Origem.Caracter = 9;
    const std::unique_ptr<ISimbolo> Copiado = Copia(Origem);
    QVERIFY(dynamic_cast<TFonteDerivada *>(Copiado.get()) != nullptr);
    QCOMPARE(Copiado->ObterClasse().Nome(), "TFonteDerivada");
    QVERIFY(Copiado->ObterClasse() != TRefSimbolo::De<TSimboloFonte>());
}

void TesteListaSimbolo::CopiarDeOutraClasseERecusado()
{
    const auto DeFonte = Glifo(40, 0.5);
    const auto DeFigura = Figura(DadoDeExemplo(QStringLiteral("imagens/ponte.bmp")));
    const auto DeComposto = Composto(DoHospedeiro(1));
    ErroDe<EInvalidCast>([&] { DeFonte->Assign(*DeFigura); });
    ErroDe<EInvalidCast>([&] { DeFigura->Assign(*DeComposto); });
    ErroDe<EInvalidCast>([&] { DeComposto->Assign(*DeFonte); });
    QCOMPARE(DeFonte->Caracter, std::uint8_t{40});
    QVERIFY(DeFigura->Grafico);
    QCOMPARE(DeComposto->Lista.Count(), 1);
}

void TesteListaSimbolo::ModuloParadoRecusaEDepoisVolta()
{
    TModulo &Modulo = ModuloTabelaDeSimbolos();
    QVERIFY(Modulo.Iniciado()); // by the loading of the library
    QCOMPARE(ModulosDoPacote().front(), &Modulo);
    TListaSimbolo::RegistrarTratadorDeSimbolo(QStringLiteral("Meu"), RefTratador, RefSimbolo);
    Modulo.Parar();
    QVERIFY(!Modulo.Iniciado());
    ErroDe<EInvalidOperation>([] { RegistroDeTratadores(); });
    ErroDe<EInvalidOperation>([] { BitmapDeMedida(); });
    QCOMPARE(TCacheDePinturas::Quantas(), 0);
    Modulo.Iniciar();
    QCOMPARE(RegistroDeTratadores().Registros().size(), std::size_t{3});
    BitmapDeMedida();
}

QTEST_MAIN(TesteListaSimbolo)
#include "TesteListaSimbolo.moc"
