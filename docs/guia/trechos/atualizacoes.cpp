// SPDX-License-Identifier: LGPL-2.1-or-later
#include "guia/Trecho.h"

#include "comum/Dados.h"

#include <Sibrel/TPreparaAtualizacao>
#include <Sibrel/TTreeViewXML>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Sibrel;
using Sibrel::Guia::Dado;
using Sibrel::Guia::EsperarAtualizacoes;
using Sibrel::Guia::PastaDoTrecho;

namespace
{

struct TTag {
    TTag() { TTreeViewXML::RegistrarClasse(QStringLiteral("Unidade"), TRefNoXML::De<TTreeNodeXML>()); }
    ~TTag() { TTreeViewXML::RemoverRegistroClasse(QStringLiteral("Unidade")); }
    TTag(const TTag &) = delete;
    TTag &operator=(const TTag &) = delete;
};

// Fails where operations are carried out, not where its caption is asked for.
class TNoQueFalha : public ComClasse<TNoQueFalha, TTreeNodeXML>
{
public:
    static constexpr const char *NomeDaClasse = "TNoQueFalha";
    using ComClasse::ComClasse;
    bool AtribuirNoXML(const IXMLNode &No) override
    {
        if (NaArvore())
            throw Exception(QStringLiteral("Nó recusado!"));
        return ComClasse::AtribuirNoXML(No);
    }
};

//! [sem_operador]
// For a host without operators: an element that fails is left out, the update goes on.
class TArvoreSemOperador : public TTreeViewXML
{
public:
    using TTreeViewXML::TTreeViewXML;
    QStringList Recusados;

protected:
    // On the GUI thread, while the update waits.
    bool DesejaContinuar(const TFalhaDeAtualizacao &Falha) override
    {
        Recusados += QStringLiteral("linha %1, %2: %3").arg(Falha.Linha).arg(Falha.Caminho, Falha.Mensagem);
        return true; // false ends the update with an error file
    }
};
//! [sem_operador]

// Two elements: the hook below fails at the second.
QString DocumentoComFalha()
{
    return QStringLiteral(
        "<Exercicio>\n<Unidade Nome='A' Cor='0'/>\n<Unidade Nome='B' Cor='0'/>\n</Exercicio>");
}

TConfigurarOperacao QueFalhaEm(const QString &Nome)
{
    return [Nome](TPreparaAtualizacao &, TAtualizacao &A) {
        if (A.NoXML.Attribute(u"Nome") == Nome)
            throw Exception(QStringLiteral("Unidade recusada!"), QStringLiteral("Detalhe da recusa."));
    };
}

} // namespace

TRECHO(Aplicar)
{
    const TTag Tag;
    TTreeViewXML Arvore;
    Arvore.Ler(Dado(QStringLiteral("dados/minima.xml")), false);
    EsperarAtualizacoes();
    const QString Arquivo = Dado(QStringLiteral("dados/atualizacao.xml"));
    QStringList Etapas;
    const auto MostrarProgresso = [&](const QString &Etapa, int, int) {
        if (Etapas.isEmpty() || Etapas.back() != Etapa)
            Etapas += Etapa;
    };
    //! [aplicar]
    Arvore.OnProgresso = [&](TTreeViewXML &, TPreparaAtualizacao &A) {
        MostrarProgresso(A.Etapa(), A.Posicao(), A.Total());
    };
    Arvore.Ler(Arquivo, true); // true: keeps the nodes, updates them
    //! [aplicar]
    EsperarAtualizacoes();
    EXIGIR(Etapas.join(u' ') == u"Abertura Preparação Atualização Terminado");
    EXIGIR(Arvore.ObterNo(QStringLiteral("1ª Companhia/1º Pelotão")) == nullptr);
    EXIGIR(Arvore.ObterNo(QStringLiteral("1ª Companhia/2º Pelotão")) != nullptr);
    EXIGIR(Arvore.DataHora() == QDateTime(QDate(2026, 11, 21), QTime(9, 20), Qt::UTC));
}

TRECHO(Configurar)
{
    const TTag Tag;
    TTreeViewXML Arvore;
    Arvore.Ler(Dado(QStringLiteral("dados/minima.xml")), false);
    EsperarAtualizacoes();
    //! [configurar]
    // On the update's thread, once for each element: this host never lets a document delete.
    Arvore.ConfigurarOperacao = [](TPreparaAtualizacao &, TAtualizacao &A) {
        if (A.Operacao == TOperacoes::exclusao && A.No != nullptr)
            A.Operacao = TOperacoes::alteracao;
    };
    //! [configurar]
    Arvore.Ler(Dado(QStringLiteral("dados/atualizacao.xml")), true);
    EsperarAtualizacoes();
    EXIGIR(Arvore.ObterNo(QStringLiteral("1ª Companhia/1º Pelotão")) != nullptr);
}

TRECHO(Cancelar)
{
    const TTag Tag;
    TTreeViewXML Arvore;
    QString Grande = QStringLiteral("<R>");
    for (int I = 0; I < 20000; ++I)
        Grande += QStringLiteral("<Unidade Nome='%1' Cor='0'/>").arg(I);
    Grande += QStringLiteral("</R>");
    QString Ultima;
    Arvore.OnProgresso = [&](TTreeViewXML &, TPreparaAtualizacao &A) {
        Ultima = A.Etapa();
        if (A.Etapa() == u"Atualização" && A.Posicao() == 10)
            A.Cancelar();
    };
    Arvore.Atualizar(Grande);
    EsperarAtualizacoes();
    EXIGIR(Ultima == u"Cancelado");
    EXIGIR(Arvore.Nos().Count() >= 10 && Arvore.Nos().Count() < 20000);

    Arvore.OnProgresso = nullptr;
    Arvore.Atualizar(Grande);
    //! [cancelar]
    for (TPreparaAtualizacao *A : Arvore.Atualizacoes())
        A->Cancelar(); // between two operations: what is done stays done
    //! [cancelar]
    EsperarAtualizacoes();
    EXIGIR(Arvore.Nos().Count() < 20000);
}

TRECHO(Falhas)
{
    const TTag Tag;
    const QString Pasta = PastaDoTrecho();
    class TRecusa : public TTreeViewXML
    {
        bool DesejaContinuar(const TFalhaDeAtualizacao &) override { return false; } // as "No"
    };
    TRecusa Arvore;
    Arvore.ConfigurarOperacao = QueFalhaEm(QStringLiteral("B"));
    QString Mostrado;
    const auto Mostrar = [&](const QString &Texto) { Mostrado += Texto; };
    //! [falhas]
    TPreparaAtualizacao::AtribuirPastaDeErros(Pasta); // empty, as at the start: beside the program
    Arvore.OnProgresso = [&](TTreeViewXML &, TPreparaAtualizacao &A) {
        if (A.Etapa() != u"XML em formato inválido!")
            return; // not the last stage of a failed update
        for (const TFalhaDeAtualizacao &Falha : A.Falhas())
            Mostrar(QStringLiteral("%1 %2 (linha %3, %4)\n")
                        .arg(Falha.Mensagem, Falha.Detalhe)
                        .arg(Falha.Linha)
                        .arg(Falha.Caminho));
        Mostrar(A.ArquivoDeErro());
    };
    //! [falhas]
    Arvore.Atualizar(DocumentoComFalha());
    EsperarAtualizacoes();
    TPreparaAtualizacao::AtribuirPastaDeErros({});
    EXIGIR(Mostrado.contains(
        QStringLiteral("Unidade recusada! Detalhe da recusa. (linha 3, Exercicio/Unidade)")));
    EXIGIR(Arvore.Nos().Count() == 0); // preparation had not ended: nothing was carried out
    const QStringList Arquivos = QDir(Pasta).entryList({QStringLiteral("Erro*.xml")});
    EXIGIR(Arquivos.size() == 1);
    static const QRegularExpression Nome(QStringLiteral("^Erro\\d{8}_\\d{6}\\.xml$"));
    EXIGIR(Nome.match(Arquivos.front()).hasMatch());
    QString Esperado = QString::fromLatin1(Testes::BytesDe(Dado(QStringLiteral("dados/erro.xml"))));
    EXIGIR(QString::fromLatin1(Testes::BytesDe(Pasta + u'/' + Arquivos.front())).remove(u'\r') ==
           Esperado.remove(u'\r'));
    EXIGIR(Arvore.DocumentosNaoGravados.isEmpty());
}

TRECHO(NaoGravados)
{
    const TTag Tag;
    class TRecusa : public TTreeViewXML
    {
        bool DesejaContinuar(const TFalhaDeAtualizacao &) override { return false; }
    };
    TRecusa Arvore;
    Arvore.ConfigurarOperacao = QueFalhaEm(QStringLiteral("B"));
    TPreparaAtualizacao::AtribuirPastaDeErros(PastaDoTrecho() + QStringLiteral("/nao existe"));
    Arvore.Atualizar(DocumentoComFalha());
    EsperarAtualizacoes();
    TPreparaAtualizacao::AtribuirPastaDeErros({});
    QStringList Enviados;
    const auto EnviarAoServidor = [&](const QString &Documento) { Enviados += Documento; };
    //! [nao_gravados]
    for (const QString &Documento : std::exchange(Arvore.DocumentosNaoGravados, {}))
        EnviarAoServidor(Documento); // the error file could not be written: the document is here
    //! [nao_gravados]
    EXIGIR(Enviados == QStringList{DocumentoComFalha()});
}

TRECHO(SemOperador)
{
    const TTag Tag;
    TArvoreSemOperador Arvore;
    Arvore.ConfigurarOperacao = QueFalhaEm(QStringLiteral("A"));
    Arvore.Atualizar(DocumentoComFalha());
    EsperarAtualizacoes();
    EXIGIR(Arvore.Nos().Count() == 1);
    EXIGIR(Arvore.Recusados == QStringList{QStringLiteral("linha 2, Exercicio/Unidade: Unidade recusada!")});
}

TRECHO(NinguemEPerguntadoAoRealizar)
{
    TTreeViewXML::RegistrarClasse(QStringLiteral("Unidade"), TRefNoXML::De<TNoQueFalha>());
    TPreparaAtualizacao::AtribuirPastaDeErros(PastaDoTrecho());
    TArvoreSemOperador Arvore;
    QString Ultima;
    Arvore.OnProgresso = [&](TTreeViewXML &, TPreparaAtualizacao &A) { Ultima = A.Etapa(); };
    Arvore.Atualizar(DocumentoComFalha());
    EsperarAtualizacoes();
    TPreparaAtualizacao::AtribuirPastaDeErros({});
    TTreeViewXML::RemoverRegistroClasse(QStringLiteral("Unidade"));
    EXIGIR(Arvore.Recusados.isEmpty());
    EXIGIR(Ultima == u"XML em formato inválido!");
}

TRECHO(NaoEDocumento)
{
    TTreeViewXML Arvore;
    QString Mostrado;
    const auto Mostrar = [&](const QString &Texto) { Mostrado = Texto; };
    //! [recusado]
    try {
        Arvore.Atualizar(QStringLiteral("<Exercicio><Unidade></Exercicio>"));
    } catch (const Exception &Erro) {
        Mostrar(Erro.Message); // "XML em formato inválido!"; the parser's words are in Erro.Detalhe
    }
    //! [recusado]
    EXIGIR(Mostrado == u"XML em formato inválido!");
    EXIGIR(TPreparaAtualizacao::Instancias() == 0);
}
