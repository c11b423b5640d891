// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/Galeria.h"

#include "hospedeiro/BotaoDeCor.h"
#include "hospedeiro/PassosDaMascara.h"

#include "plataforma/Arquivo.h"
#include "plataforma/Exception.h"
#include "plataforma/Picture.h"
#include "simbolos/SimboloImagem.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace Hospedeiro
{

using namespace Sibrel;

namespace
{

constexpr int LadoDaSilhueta = 140;
constexpr int LadoDoPasso = 128; // a mask of the usual size, twice as large

QLabel *Legenda(const QString &Texto, QWidget *Dono)
{
    auto *Legenda = new QLabel(Texto, Dono);
    Legenda->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    return Legenda;
}

// Whole multiples, so that the pixels of the mask can be counted; a large one is made to fit.
QPixmap Ampliada(const QImage &Imagem)
{
    const int Lado = std::max(Imagem.width(), Imagem.height());
    const QSize Tamanho = Lado > LadoDoPasso
                              ? Imagem.size().scaled(LadoDoPasso, LadoDoPasso, Qt::KeepAspectRatio)
                              : Imagem.size() * (LadoDoPasso / Lado);
    return QPixmap::fromImage(Imagem.scaled(Tamanho));
}

QWidget *ComTitulo(const QString &Titulo, QLayout *Conteudo, QWidget *Dono)
{
    auto *Quadro = new QWidget(Dono);
    auto *Coluna = new QVBoxLayout(Quadro);
    Coluna->setContentsMargins(0, 0, 0, 0);
    Coluna->addWidget(new QLabel(QStringLiteral("<b>%1</b>").arg(Titulo), Quadro));
    Coluna->addLayout(Conteudo, 1);
    return Quadro;
}

} // namespace

TGaleria::TGaleria(QWidget *Dono)
    : TPagina(Dono)
{
    auto *Coluna = new QVBoxLayout(this);
    Coluna->addWidget(MontarEscolhas());
    Coluna->addWidget(MontarSilhuetas(), 1);
    Coluna->addWidget(MontarPassos());
    setFocusProxy(FMascara);
    AtribuirCor(QColor(Qt::blue));
    MostrarFundo();
    MostrarMascara();
}

TGaleria::~TGaleria() = default;

QWidget *TGaleria::MontarEscolhas()
{
    auto *Quadro = new QWidget(this);
    auto *Linha = new QHBoxLayout(Quadro);
    Linha->setContentsMargins(0, 0, 0, 0);
    FMascara = new QComboBox(Quadro);
    FMascara->setMinimumContentsLength(16);
    FMascara->setObjectName(QStringLiteral("Mascara"));
    auto *NomeDaMascara = new QLabel(tr("&Máscara:"), Quadro);
    NomeDaMascara->setBuddy(FMascara);
    auto *Abrir = new QPushButton(tr("Abrir &imagem..."), Quadro);
    FPadrao = new QComboBox(Quadro);
    FPadrao->addItems({tr("Xadrez"), tr("Listras"), tr("Terreno")});
    FPadrao->setObjectName(QStringLiteral("Fundo"));
    auto *NomeDoPadrao = new QLabel(tr("&Fundo:"), Quadro);
    NomeDoPadrao->setBuddy(FPadrao);
    FCor = new TBotaoDeCor(Quadro);
    FCor->AtribuirDescricao(tr("Cor da silhueta"));
    connect(FMascara, &QComboBox::currentIndexChanged, this, &TGaleria::MostrarMascara);
    connect(FPadrao, &QComboBox::currentIndexChanged, this, &TGaleria::MostrarFundo);
    connect(FCor, &TBotaoDeCor::CorMudou, this, &TGaleria::MostrarCor);
    connect(Abrir, &QPushButton::clicked, this, &TGaleria::PerguntarEAbrir);
    Linha->addWidget(NomeDaMascara);
    Linha->addWidget(FMascara);
    Linha->addWidget(Abrir);
    Linha->addSpacing(12);
    Linha->addWidget(NomeDoPadrao);
    Linha->addWidget(FPadrao);
    Linha->addSpacing(12);
    Linha->addWidget(FCor);
    Linha->addStretch(1);
    return Quadro;
}

QWidget *TGaleria::MontarSilhuetas()
{
    auto *Linha = new QHBoxLayout;
    Linha->addWidget(MontarSilhueta(0, tr("No canto")), 1);
    Linha->addWidget(MontarSilhueta(1, tr("Centralizada")), 1);
    Linha->addWidget(MontarSilhueta(2, tr("Esticada")), 1);
    FSilhuetas[1]->AtribuirCentralizar(true);
    FSilhuetas[2]->AtribuirEsticar(true);
    return ComTitulo(tr("Posições"), Linha, this);
}

QWidget *TGaleria::MontarSilhueta(std::size_t Qual, const QString &Nome)
{
    auto *Quadro = new QWidget(this);
    auto *Coluna = new QVBoxLayout(Quadro);
    Coluna->setContentsMargins(0, 0, 0, 0);
    FFundos[Qual] = new TFundoPadronado(Quadro);
    FFundos[Qual]->setMinimumSize(LadoDaSilhueta, LadoDaSilhueta);
    auto *Dentro = new QHBoxLayout(FFundos[Qual]);
    Dentro->setContentsMargins(0, 0, 0, 0);
    FSilhuetas[Qual] = new TSimboloImagem(FFundos[Qual]);
    FSilhuetas[Qual]->setMinimumSize(1, 1); // a large mask is clipped and does not push the window apart
    FSilhuetas[Qual]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    FSilhuetas[Qual]->setAccessibleName(Nome);
    Dentro->addWidget(FSilhuetas[Qual]);
    Coluna->addWidget(FFundos[Qual], 1);
    Coluna->addWidget(Legenda(Nome, Quadro));
    return Quadro;
}

QWidget *TGaleria::MontarPassos()
{
    FPassos = new QHBoxLayout;
    QWidget *Quadro = ComTitulo(tr("Transferências"), FPassos, this);
    Quadro->setMinimumHeight(LadoDoPasso + 3 * fontMetrics().height());
    return Quadro;
}

void TGaleria::AtribuirBiblioteca(const QString &Arquivo)
{
    const QString Antes = FMascara->currentText();
    {
        const QSignalBlocker Quietos(FMascara); // told once, when all is there
        RetirarAsDaBiblioteca();
        const QDir Pasta = QFileInfo(ResolverNomeDeArquivo(Arquivo)).absoluteDir();
        const QDir Imagens(ResolverNomeDeArquivo(Pasta.filePath(QStringLiteral("imagens"))));
        const QFileInfoList Arquivos =
            Imagens.exists() ? Imagens.entryInfoList(QDir::Files, QDir::Name) : QFileInfoList();
        for (const QFileInfo &Imagem : Arquivos)
            try {
                Oferecer(Imagem.absoluteFilePath(), true);
            } catch (const Exception &) {
                continue; // the folder may hold other things than pictures
            }
        FMascara->setCurrentIndex(std::max(FMascara->findText(Antes), FMascara->count() > 0 ? 0 : -1));
    }
    MostrarMascara();
}

void TGaleria::RetirarAsDaBiblioteca()
{
    for (std::size_t I = FMascaras.size(); I-- > 0;)
        if (FMascaras[I].DaBiblioteca) {
            FMascaras.erase(FMascaras.begin() + static_cast<std::ptrdiff_t>(I));
            FMascara->removeItem(static_cast<int>(I));
        }
}

void TGaleria::Oferecer(const QString &Arquivo, bool DaBiblioteca)
{
    auto Figura = LerGrafico(Arquivo);
    const QSize Icone = FMascara->iconSize();
    const QIcon Miniatura(QPixmap::fromImage(Figura->Preparada(Icone)));
    FMascaras.push_back({std::move(Figura), DaBiblioteca});
    FMascara->addItem(Miniatura, QFileInfo(Arquivo).fileName());
}

bool TGaleria::Abrir(const QString &Arquivo)
{
    try {
        Oferecer(Arquivo, false);
    } catch (const Exception &E) {
        Q_EMIT Erro(E.Message, E.Detalhe);
        return false;
    }
    Mostrar(FMascara->count() - 1);
    return true;
}

void TGaleria::PerguntarEAbrir()
{
    const QString Arquivo = QFileDialog::getOpenFileName(
        this, tr("Abrir imagem"), QString(),
        tr("Imagens (*.png *.bmp *.gif *.jpg *.svg *.xbm *.ppm);;Todos os arquivos (*)"));
    if (!Arquivo.isEmpty())
        Abrir(Arquivo);
}

QString TGaleria::Titulo() const
{
    return tr("&Galeria");
}

QString TGaleria::Atual() const
{
    const TBitmap &Mascara = FSilhuetas[0]->ObterMascara();
    return Mascara.Empty() ? QString()
                           : tr("%1: %2 x %3 pixels")
                                 .arg(FMascara->currentText())
                                 .arg(Mascara.Width())
                                 .arg(Mascara.Height());
}

QString TGaleria::Contagem() const
{
    return FMascara->count() == 1 ? tr("1 máscara") : tr("%1 máscaras").arg(FMascara->count());
}

QStringList TGaleria::Mascaras() const
{
    QStringList Nomes;
    for (int I = 0; I < FMascara->count(); ++I)
        Nomes += FMascara->itemText(I);
    return Nomes;
}

int TGaleria::Escolhida() const
{
    return FMascara->currentIndex();
}

void TGaleria::Mostrar(int Indice)
{
    FMascara->setCurrentIndex(Indice);
}

const QColor &TGaleria::Cor() const
{
    return FCor->Cor();
}

void TGaleria::AtribuirCor(const QColor &Cor)
{
    FCor->AtribuirCor(Cor);
}

void TGaleria::MostrarCor()
{
    for (TSimboloImagem *Silhueta : FSilhuetas)
        Silhueta->AtribuirCor(TColor(Cor()));
    MostrarPassos();
}

TPadrao TGaleria::Padrao() const
{
    return static_cast<TPadrao>(FPadrao->currentIndex());
}

void TGaleria::AtribuirPadrao(TPadrao Padrao)
{
    FPadrao->setCurrentIndex(static_cast<int>(Padrao));
}

void TGaleria::MostrarFundo()
{
    for (TFundoPadronado *Fundo : FFundos)
        Fundo->AtribuirPadrao(Padrao());
    MostrarPassos();
}

void TGaleria::MostrarMascara()
{
    const TGraphic *Figura =
        Escolhida() >= 0 ? FMascaras[static_cast<std::size_t>(Escolhida())].Figura.get() : nullptr;
    for (TSimboloImagem *Silhueta : FSilhuetas)
        Silhueta->AtribuirMascara(Figura);
    MostrarPassos();
    Q_EMIT EstadoMudou();
}

void TGaleria::MostrarPassos()
{
    while (const QLayoutItem *Item = FPassos->takeAt(0)) {
        delete Item->widget();
        delete Item;
    }
    const TBitmap &Mascara = FSilhuetas[0]->ObterMascara();
    const QImage Fundo = PadraoEmImagem({Mascara.Width(), Mascara.Height()}, Padrao());
    for (const TPassoDaMascara &Passo : PassosDaMascara(Mascara, Cor(), Fundo)) {
        auto *Coluna = new QWidget(this);
        auto *Dentro = new QVBoxLayout(Coluna);
        Dentro->setContentsMargins(0, 0, 0, 0);
        auto *Imagem = new QLabel(Coluna);
        Imagem->setPixmap(Ampliada(Passo.Imagem));
        Imagem->setAlignment(Qt::AlignCenter);
        Imagem->setFixedHeight(LadoDoPasso);
        Imagem->setAccessibleName(Passo.Descricao);
        Dentro->addWidget(Imagem);
        Dentro->addWidget(Legenda(Passo.Modo, Coluna));
        Coluna->setToolTip(Passo.Descricao);
        FPassos->addWidget(Coluna);
    }
}

} // namespace Hospedeiro
