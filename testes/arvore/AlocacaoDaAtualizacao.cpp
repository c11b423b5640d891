// SPDX-License-Identifier: LGPL-2.1-or-later
// alocacao_da_atualizacao FOLDER: the same small update again and again, each time with another of the update
// thread's allocations failing: the first that it asks for, the second... until one goes through without a
// failure. Every one of these updates must come to a told end, keep its document when it failed, and leave a
// tree that the next one can use. A process of its own: it answers for the process's memory.
#include "arvore/ComumAtualizacao.h"

#include <QApplication>
#include <QDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>

extern "C" void *__libc_malloc(std::size_t Bytes);
extern "C" void *__libc_realloc(void *Antes, std::size_t Bytes);

namespace
{

thread_local int Faltam = 0; // allocations of this thread up to the first that fails; 0 when none does
thread_local int Seguidas = 0;
int Vezes = 1;
std::atomic<bool> Falhou = false;

bool Recusar() noexcept
{
    if (Faltam > 0 && --Faltam == 0)
        Seguidas = Vezes;
    if (Seguidas == 0)
        return false;
    --Seguidas;
    Falhou = true;
    return true;
}

} // namespace

// Seen by all libraries of the process: hidden, they would serve this file alone.
extern "C" [[gnu::visibility("default")]] void *malloc(std::size_t Bytes)
{
    return Recusar() ? nullptr : __libc_malloc(Bytes);
}

extern "C" [[gnu::visibility("default")]] void *realloc(void *Antes, std::size_t Bytes)
{
    return Recusar() ? nullptr : __libc_realloc(Antes, Bytes);
}

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

// A class of the host's: it takes the other path, in which the node is in the tree before it loads.
class TNoDoHospedeiro : public ComClasse<TNoDoHospedeiro, TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoDoHospedeiro";
};

QString Base()
{
    QString XML;
    for (int I = 0; I < 6; ++I)
        XML += U(QStringLiteral("Elemento %1").arg(I), QString::number(I),
                 U(QStringLiteral("Filho"), QStringLiteral("f%1").arg(I % 2)));
    for (int I = 0; I < 20; ++I) // so many that captions are looked up by index
        XML += U(QStringLiteral("Irmão %1").arg(I), QStringLiteral("i%1").arg(I));
    return Doc(XML);
}

// Something of everything: deletions of nodes that are there, by identification, of none; changes,
// insertions, links.
QString Mudanca()
{
    QString XML = QStringLiteral("<R DataHora='2024-05-06T06:20:00Z'>") + Fora("Nenhum", "f0");
    for (int I = 0; I < 4; ++I)
        XML += U(QStringLiteral("Elemento %1").arg(I), QString::number(I),
                 U(QStringLiteral("Filho"), QStringLiteral("f%1").arg(I % 2), {}, "Cor='3'") +
                     U(QStringLiteral("Novo filho %1, de nome que não cabe em lugar nenhum").arg(I),
                       QStringLiteral("n%1").arg(I)),
                 QStringLiteral("Cor='%1' Símbolo='2'").arg(I));
    XML += Fora("Elemento 4", "4") + Fora("Elemento 5", "5");
    XML += U("Ligado", "1", {}, "Link='sim'");
    XML += QStringLiteral("<H Nome='Do hospedeiro' Cor='1'><Informações><Informação Rótulo='a' Valor='b'/>"
                          "</Informações>%1</H>")
               .arg(U("Dentro", "d"));
    return XML + QStringLiteral("</R>");
}

// Nodes that the indexes do not find, although they are there.
QString Perdidos(const TTreeViewXML &Vista)
{
    QStringList Lista;
    for (TTreeNode *No = Vista.Nos().GetFirstNode(); No != nullptr; No = No->GetNext()) {
        const auto *XML = dynamic_cast<TTreeNodeXML *>(No);
        if (XML == nullptr || XML->Identificacao().Count() == 0)
            continue;
        std::vector<TTreeNodeXML *> Achados;
        Vista.ObterNos(Achados, XML->Identificacao());
        if (std::find(Achados.begin(), Achados.end(), No) == Achados.end() ||
            Vista.ObterNo(ObterCaminho(No, QStringLiteral("/"))) == nullptr)
            Lista.append(No->Text());
    }
    return Lista.join(u' ');
}

// What was wrong with one update; empty when nothing was.
QString Volta(TVistaQueResponde &Vista, int Qual)
{
    QString Ultima;
    bool Guardado = false;
    Vista.Perguntas.clear();
    Vista.DocumentosNaoGravados.clear();
    Vista.ConfigurarOperacao = nullptr;
    Vista.OnProgresso = nullptr;
    Vista.Items().Clear();
    Vista.Atualizar(Base());
    if (!EsperarAtualizacoes() || Vista.Nos().Count() != 32)
        return QStringLiteral("a primeira não acabou");
    Vista.OnProgresso = [&](TTreeViewXML &, TPreparaAtualizacao &A) {
        Ultima = A.Etapa();
        Guardado = !A.ArquivoDeErro().isEmpty();
    };
    bool Armada = false;
    Vista.ConfigurarOperacao = [&](TPreparaAtualizacao &, TAtualizacao &) {
        if (!std::exchange(Armada, true))
            Faltam = Qual;
    };
    Falhou = false;
    Vista.Atualizar(Mudanca());
    if (!EsperarAtualizacoes())
        return QStringLiteral("não acabou");
    Guardado = Guardado || !Vista.DocumentosNaoGravados.isEmpty();
    if (Ultima != u"Terminado" && (Ultima != u"XML em formato inválido!" || !Guardado))
        return QStringLiteral("acabou em <%1>, documento %2").arg(Ultima).arg(Guardado);
    Vista.ConfigurarOperacao = nullptr;
    Vista.Atualizar(Doc(U(QStringLiteral("Depois"), QStringLiteral("d"))));
    if (!EsperarAtualizacoes() || Ultima != u"Terminado")
        return QStringLiteral("a seguinte acabou em <%1>").arg(Ultima);
    if (const QString Nomes = Perdidos(Vista); !Nomes.isEmpty())
        return QStringLiteral("não se acham: ") + Nomes;
    if (Mostrado(Vista.Modelo()) != Texto(Vista.Nos()) || Vista.ObterNo(QStringLiteral("Depois")) == nullptr)
        return QStringLiteral("mostra <%1> de <%2>").arg(Mostrado(Vista.Modelo()), Texto(Vista.Nos()));
    return {};
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication Aplicacao(argc, argv);
    TPreparaAtualizacao::AtribuirPastaDeErros(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    Vezes = argc > 2 ? std::atoi(argv[2]) : 1;
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()},
                                {"H", TRefNoXML::De<TNoDoHospedeiro>()}};
    TVistaQueResponde Vista;
    int Quantas = 0;
    do {
        ++Quantas;
        Vista.Resposta = Quantas % 2 == 0;
        if (const QString Erro = Volta(Vista, Quantas); !Erro.isEmpty()) {
            std::printf("alocação %d: %s\n", Quantas, qUtf8Printable(Erro));
            return 1;
        }
    } while (Falhou && Quantas < 5000);
    std::printf("%d alocações\n", Quantas - 1);
    return Falhou || Quantas < 50 ? 1 : 0; // so few would mean that nothing was tried
}
