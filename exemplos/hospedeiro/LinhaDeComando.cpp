// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/LinhaDeComando.h"

#include "plataforma/Exception.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace Hospedeiro
{

namespace
{

// As the option parser and the first look at the arguments both know them.
constexpr std::array OpcoesSemJanela = {"folha", "listar", "exportar", "captura", "ajuda",
                                        "help",  "h",      "versao",   "v"};

QString Descricao()
{
    return QStringLiteral(
        "Mostra bibliotecas de símbolos, figuras vetoriais e árvores de objetos. Sem --folha, --listar,\n"
        "--exportar nem --captura abre a janela.\n"
        "\n"
        "A lista de uma biblioteca tem uma linha por símbolo, em UTF-8, com colunas separadas por "
        "tabulação:\n"
        "  índice, tipo, rótulo e os campos do tipo, cada um como nome=valor.\n"
        "  Fonte:    caracter, charset, proporcao, fonte\n"
        "  Grafico:  arquivo\n"
        "  Composto: partes\n"
        "  Vetorial: arquivo, elementos\n"
        "As partes de um composto seguem-no, dois brancos mais para dentro, com o índice do composto,\n"
        "um ponto e o número da parte a partir de 0; o rótulo delas é vazio. A lista de uma figura tem uma\n"
        "linha por elemento: índice, tipo e os campos, com os nomes dos atributos no arquivo; os vértices\n"
        "de um polígono são o campo Pontos, como x,y separados por brancos. Uma tabulação dentro de um\n"
        "texto aparece como um branco.\n"
        "\n"
        "Com --arvore, --listar e --captura são da árvore, depois de todas as atualizações. A lista tem uma\n"
        "linha por nó, dois brancos mais para dentro a cada nível: legenda, cor=#rrggbb, simbolo=índice,\n"
        "id.RÓTULO=valor para cada par da identificação, info.RÓTULO=valor para cada informação e, conforme\n"
        "o nó, link e apagado.\n"
        "\n"
        "Com --banco, os símbolos são os da tabela SIMBOLOS e a árvore é a da tabela UNIDADES: --folha e\n"
        "--exportar são dos símbolos, --listar e --captura da árvore. Um servidor também pode ser dado pela\n"
        "pasta do seu soquete: postgresql://usuário@/banco?host=/pasta. As fontes de um servidor são as da\n"
        "pasta \"fontes\" da pasta atual.\n"
        "\n"
        "As fontes da pasta \"fontes\" ao lado da biblioteca são usadas sem instalar. Avisos e erros vão\n"
        "para a saída de erros; depois de um erro o código de saída é 1.");
}

[[noreturn]] void Recusar(const QString &Texto)
{
    throw Sibrel::Exception(Texto, VejaAAjuda());
}

struct TOpcoes {
    QCommandLineOption Biblioteca{QStringLiteral("biblioteca"), QStringLiteral("Biblioteca a abrir."),
                                  QStringLiteral("ARQUIVO")};
    QCommandLineOption Folha{QStringLiteral("folha"), QStringLiteral("Desenha a folha de símbolos."),
                             QStringLiteral("IMAGEM")};
    QCommandLineOption Tamanho{
        QStringLiteral("tamanho"),
        QStringLiteral("Lado de cada símbolo em pixels, de %1 a %2; %3 quando não é dado.")
            .arg(MenorTamanho)
            .arg(MaiorTamanho)
            .arg(TamanhoInicial),
        QStringLiteral("PIXELS")};
    QCommandLineOption Listar{QStringLiteral("listar"),
                              QStringLiteral("Lista os símbolos, os elementos ou os nós.")};
    QCommandLineOption Exportar{QStringLiteral("exportar"), QStringLiteral("Grava a biblioteca outra vez."),
                                QStringLiteral("ARQUIVO")};
    QCommandLineOption Figura{QStringLiteral("figura"), QStringLiteral("Figura vetorial a abrir."),
                              QStringLiteral("ARQUIVO")};
    QCommandLineOption Captura{QStringLiteral("captura"), QStringLiteral("Desenha a figura ou a árvore."),
                               QStringLiteral("IMAGEM")};
    QCommandLineOption Banco{
        QStringLiteral("banco"),
        QStringLiteral("Banco de dados de onde vêm os símbolos e a árvore: um arquivo SQLite ou\n"
                       "postgresql://usuário@servidor/banco?opções."),
        QStringLiteral("ENDEREÇO")};
    QCommandLineOption Arvore{QStringLiteral("arvore"), QStringLiteral("Documento de árvore a abrir."),
                              QStringLiteral("ARQUIVO")};
    QCommandLineOption Raiz{QStringLiteral("raiz"),
                            QStringLiteral("Nome do elemento raiz dos documentos; sem ela vale qualquer um."),
                            QStringLiteral("NOME")};
    QCommandLineOption Atualizar{
        QStringLiteral("atualizar"),
        QStringLiteral("Documento com que atualizar a árvore; pode ser dada mais de uma vez."),
        QStringLiteral("ARQUIVO")};
    QCommandLineOption Vigiar{QStringLiteral("vigiar"),
                              QStringLiteral("Abre a janela e atualiza a árvore com cada documento novo que "
                                             "aparecer na pasta, na ordem dos nomes."),
                              QStringLiteral("PASTA")};
    QCommandLineOption Ajuda{{QStringLiteral("h"), QStringLiteral("ajuda"), QStringLiteral("help")},
                             QStringLiteral("Mostra esta ajuda.")};
    QCommandLineOption Versao{{QStringLiteral("v"), QStringLiteral("versao")},
                              QStringLiteral("Mostra a versão.")};

    void AcrescentarA(QCommandLineParser &Leitor) const
    {
        Leitor.addOptions({Biblioteca, Folha, Tamanho, Listar, Exportar, Figura, Captura, Banco, Arvore, Raiz,
                           Atualizar, Vigiar, Ajuda, Versao});
    }
};

std::optional<QString> Arquivo(const QCommandLineParser &Leitor, const QCommandLineOption &Opcao)
{
    if (!Leitor.isSet(Opcao))
        return std::nullopt;
    if (Leitor.values(Opcao).size() > 1)
        Recusar(QStringLiteral("A opção --%1 foi dada mais de uma vez!").arg(Opcao.names().constFirst()));
    QString Nome = Leitor.value(Opcao);
    if (Nome.isEmpty())
        Recusar(
            QStringLiteral("A opção --%1 precisa de um nome de arquivo!").arg(Opcao.names().constFirst()));
    return Nome;
}

int Tamanho(const QString &Texto)
{
    bool Numero = false;
    const int Pixels = Texto.toInt(&Numero);
    if (!Numero || Pixels < MenorTamanho || Pixels > MaiorTamanho)
        Recusar(QStringLiteral("O tamanho <%1> não é um número de %2 a %3!")
                    .arg(Texto)
                    .arg(MenorTamanho)
                    .arg(MaiorTamanho));
    return Pixels;
}

TPedido Pedido(const QCommandLineParser &Leitor, const TOpcoes &Opcoes)
{
    TPedido P;
    if (Leitor.isSet(Opcoes.Ajuda))
        P.Texto = Leitor.helpText();
    else if (Leitor.isSet(Opcoes.Versao))
        P.Texto = QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(),
                                                QCoreApplication::applicationVersion());
    P.Biblioteca = Arquivo(Leitor, Opcoes.Biblioteca);
    P.Folha = Arquivo(Leitor, Opcoes.Folha);
    P.Exportar = Arquivo(Leitor, Opcoes.Exportar);
    P.Figura = Arquivo(Leitor, Opcoes.Figura);
    P.Captura = Arquivo(Leitor, Opcoes.Captura);
    P.Banco = Arquivo(Leitor, Opcoes.Banco);
    P.Arvore = Arquivo(Leitor, Opcoes.Arvore);
    P.Vigiar = Arquivo(Leitor, Opcoes.Vigiar);
    P.Raiz = Arquivo(Leitor, Opcoes.Raiz).value_or(QString());
    P.Atualizacoes = Leitor.values(Opcoes.Atualizar);
    P.Listar = Leitor.isSet(Opcoes.Listar);
    if (Leitor.isSet(Opcoes.Tamanho))
        P.Tamanho = Tamanho(Leitor.value(Opcoes.Tamanho));
    return P;
}

// Options of which each says what there is to work on.
void ConferirOrigens(const TPedido &P)
{
    const std::array<std::pair<const char *, bool>, 4> Origens = {{{"banco", P.Banco.has_value()},
                                                                   {"biblioteca", P.Biblioteca.has_value()},
                                                                   {"arvore", P.Arvore.has_value()},
                                                                   {"figura", P.Figura.has_value()}}};
    const auto Juntas = [&](std::size_t A, std::size_t B) {
        if (Origens[A].second && Origens[B].second)
            Recusar(QStringLiteral("As opções --%1 e --%2 não vão juntas!")
                        .arg(QLatin1String(Origens[A].first), QLatin1String(Origens[B].first)));
    };
    for (std::size_t Outra = 1; Outra < Origens.size(); ++Outra)
        Juntas(0, Outra); // a database has symbols and tree
    Juntas(1, 3);
    Juntas(2, 3);
}

void Conferir(const TPedido &P)
{
    ConferirOrigens(P);
    const bool ComArvore = P.Arvore || P.Banco;
    if (!P.Atualizacoes.isEmpty() && !ComArvore)
        Recusar(QStringLiteral("Falta a opção --arvore ou --banco!"));
    if ((P.Folha || P.Exportar) && !P.Biblioteca && !P.Banco)
        Recusar(QStringLiteral("Falta a opção --biblioteca ou --banco!"));
    if (P.Captura && !P.Figura && !ComArvore)
        Recusar(QStringLiteral("Falta a opção --figura, --arvore ou --banco!"));
    if (P.Listar && !P.Biblioteca && !P.Figura && !ComArvore)
        Recusar(QStringLiteral("Falta a opção --biblioteca, --figura, --arvore ou --banco!"));
    if (P.Vigiar && P.SoLinhaDeComando())
        Recusar(QStringLiteral("A opção --vigiar precisa da janela!"));
}

} // namespace

QString VejaAAjuda()
{
    return QStringLiteral("Veja as opções com --ajuda.");
}

TPedido LerLinhaDeComando(const QStringList &Argumentos)
{
    const TOpcoes Opcoes;
    QCommandLineParser Leitor;
    Leitor.setApplicationDescription(Descricao());
    Opcoes.AcrescentarA(Leitor);
    if (!Leitor.parse(Argumentos))
        Recusar(Leitor.errorText());
    if (const QStringList Sobram = Leitor.positionalArguments(); !Sobram.isEmpty())
        Recusar(QStringLiteral("O argumento <%1> não pertence a nenhuma opção!").arg(Sobram.constFirst()));
    TPedido P = Pedido(Leitor, Opcoes);
    if (!P.Texto)
        Conferir(P);
    return P;
}

bool PedeSoLinhaDeComando(int Quantos, const char *const *Argumentos)
{
    return std::any_of(Argumentos + 1, Argumentos + std::max(Quantos, 1), [](std::string_view Argumento) {
        const auto Nome = Argumento.substr(std::min(Argumento.find_first_not_of('-'), Argumento.size()));
        return Nome.size() < Argumento.size() &&
               std::find(OpcoesSemJanela.begin(), OpcoesSemJanela.end(), Nome.substr(0, Nome.find('='))) !=
                   OpcoesSemJanela.end();
    });
}

} // namespace Hospedeiro
