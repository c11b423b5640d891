// SPDX-License-Identifier: LGPL-2.1-or-later
// memoria_da_atualizacao WHEN: an update of a large document for which the process has not enough memory,
// from the moment WHEN on (leitura, preparo, realizacao); then, with memory again, a small one. Tells what
// came of both, one fact a line. A process of its own: the limit holds for all of it.
#include "arvore/ComumArvore.h"
#include "plataforma/Exception.h"

#include <QApplication>
#include <QFile>

#include <malloc.h>
#include <sys/resource.h>

#include <atomic>
#include <cstdio>
#include <string_view>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

constexpr rlim_t FolgaEmBytes = 4U << 20U;
constexpr int Elementos = 60000;

rlim_t EmUso()
{
    QFile Estado(QStringLiteral("/proc/self/statm"));
    if (!Estado.open(QIODevice::ReadOnly))
        return 0;
    return Estado.readAll().split(' ').value(0).toULongLong() * 4096U;
}

void Limitar(rlim_t Bytes)
{
    rlimit Limite{};
    getrlimit(RLIMIT_AS, &Limite);
    Limite.rlim_cur = Bytes;
    setrlimit(RLIMIT_AS, &Limite);
}

void FaltarMemoria()
{
    malloc_trim(0);
    Limitar(EmUso() + FolgaEmBytes);
}

void HaverMemoria()
{
    Limitar(RLIM_INFINITY);
}

void Dizer(const char *Fato, const QString &Valor)
{
    std::printf("%s: %s\n", Fato, qUtf8Printable(Valor));
}

class TVista : public TTreeViewXML
{
protected:
    bool DesejaContinuar(const TFalhaDeAtualizacao &) override { return false; }
};

// An update from its start to its end; where it fails before its start, that is told.
void Rodar(TTreeViewXML &Vista, const QString &XML)
{
    try {
        Vista.Atualizar(XML);
    } catch (const Exception &E) {
        HaverMemoria();
        Dizer("recusa", E.Message);
        return;
    }
    if (!EsperarAtualizacoes(300000))
        Dizer("espera", QStringLiteral("demais"));
}

} // namespace

int main(int argc, char *argv[])
{
    mallopt(M_ARENA_MAX, 1); // what a thread of its own could reserve would be out of the limit's reach
    const QApplication Aplicacao(argc, argv);
    const std::string_view Quando = argc > 1 ? argv[1] : "";
    TPreparaAtualizacao::AtribuirPastaDeErros(QString::fromLocal8Bit(argc > 2 ? argv[2] : ""));
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TVista Vista;
    Vista.Nos().AddChild(nullptr, QStringLiteral("antes"));

    QString Muitos;
    for (int I = 0; I < Elementos; ++I)
        Muitos += U(QStringLiteral("Elemento %1").arg(I), QString::number(I));
    std::atomic<int> Vistos = 0;
    Vista.ConfigurarOperacao = [&](TPreparaAtualizacao &, TAtualizacao &) {
        if (Quando == "preparo" && ++Vistos == 100)
            FaltarMemoria();
    };
    QString Ultima;
    QString Mensagem;
    QString Detalhe;
    QString Arquivo;
    Vista.OnProgresso = [&](TTreeViewXML &, TPreparaAtualizacao &A) {
        if (Quando == "realizacao" && A.Etapa() == u"Atualização" && A.Total() > 1 && A.Posicao() == 0)
            FaltarMemoria();
        if (A.Total() == 0 && A.Etapa() != u"Preparação") {
            HaverMemoria();
            Ultima = A.Etapa();
            Arquivo = A.ArquivoDeErro();
            Mensagem = A.Falhas().empty() ? QString() : A.Falhas().back().Mensagem;
            Detalhe = A.Falhas().empty() ? QString() : A.Falhas().back().Detalhe;
        }
    };
    if (Quando == "leitura") {
        Muitos = Doc(Muitos);
        FaltarMemoria();
        Rodar(Vista, Muitos);
    } else {
        Rodar(Vista, Doc(Muitos));
    }
    Dizer("fim", Ultima);
    Dizer("mensagem", Mensagem);
    Dizer("detalhe", Detalhe);
    Dizer("documento", !Arquivo.isEmpty()                      ? QStringLiteral("gravado")
                       : Vista.DocumentosNaoGravados.isEmpty() ? QStringLiteral("nenhum")
                                                               : QStringLiteral("guardado"));
    Dizer("parcial", Vista.Nos().Count() > 1 && Vista.Nos().Count() <= Elementos ? QStringLiteral("sim")
                                                                                 : QStringLiteral("não"));
    Vista.Items().Clear();
    Rodar(Vista, Doc(U(QStringLiteral("A"), QStringLiteral("a"))));
    Dizer("depois", Ultima);
    Dizer("árvore", Texto(Vista.Nos()).left(100));
    Dizer("mostrado", Mostrado(Vista.Modelo()).left(100));
    return 0;
}
