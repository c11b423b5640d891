// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/PaginaDeSimbolos.h"

#include "hospedeiro/Biblioteca.h"
#include "hospedeiro/BotaoDeCor.h"
#include "hospedeiro/DescricaoDeSimbolo.h"
#include "hospedeiro/FolhaDeSimbolos.h"

#include "simbolos/TabelaDeSimbolos.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QSlider>
#include <QToolBar>
#include <QVBoxLayout>

namespace Hospedeiro
{

namespace
{

constexpr int PassoDoTamanho = 8;
constexpr int LarguraDoControle = 280; // a slider over the whole window would be clumsy

} // namespace

TPaginaDeSimbolos::TPaginaDeSimbolos(QWidget *Dono)
    : TPagina(Dono)
    , FFolha(new TFolhaDeSimbolos(this))
{
    auto *Ferramentas = new QToolBar(tr("Ferramentas"), this);
    auto *Disposicao = new QVBoxLayout(this);
    Disposicao->setContentsMargins(0, 0, 0, 0);
    Disposicao->setSpacing(0);
    Disposicao->addWidget(Ferramentas);
    Disposicao->addWidget(FFolha);
    FFolha->setModel(&FModelo);
    setFocusProxy(FFolha);
    MontarTamanho(*Ferramentas);
    auto *Cor = new TBotaoDeCor(Ferramentas);
    connect(Cor, &TBotaoDeCor::CorMudou, FFolha, &TFolhaDeSimbolos::AtribuirCor);
    Ferramentas->addWidget(Cor);
    Ferramentas->addSeparator();
    MontarBusca(*Ferramentas);
    connect(FFolha, &TFolhaDeSimbolos::PassoDeTamanho, this, &TPaginaDeSimbolos::Crescer);
    connect(FFolha, &QAbstractItemView::activated, this,
            [this](const QModelIndex &Indice) { Q_EMIT SimboloAtivado(Indice.row()); });
    connect(FFolha->selectionModel(), &QItemSelectionModel::currentChanged, this, &TPagina::EstadoMudou);
    connect(&FModelo, &QAbstractItemModel::modelReset, this, &TPagina::EstadoMudou);
}

TPaginaDeSimbolos::~TPaginaDeSimbolos()
{
    FFolha->setModel(nullptr);
    FModelo.AtribuirTabela(nullptr);
}

void TPaginaDeSimbolos::AtribuirBiblioteca(const TBiblioteca *Biblioteca)
{
    FBiblioteca = Biblioteca;
    FModelo.AtribuirTabela(Biblioteca != nullptr ? &Biblioteca->Tabela() : nullptr);
}

void TPaginaDeSimbolos::AtribuirTamanho(int Pixels)
{
    FTamanho->setValue(Pixels);
}

void TPaginaDeSimbolos::AcrescentarAoMenu(QAction *Acao)
{
    FMenu->addAction(Acao);
}

QString TPaginaDeSimbolos::Titulo() const
{
    return tr("&Símbolos");
}

QString TPaginaDeSimbolos::Arquivo() const
{
    return FBiblioteca != nullptr ? FBiblioteca->Origem() : QString();
}

QString TPaginaDeSimbolos::Atual() const
{
    const QModelIndex Indice = FFolha->currentIndex();
    if (!Indice.isValid())
        return {};
    const Sibrel::ISimbolo &Simbolo = *FModelo.Tabela()->Simbolos().Item(Indice.row());
    return QStringLiteral("%1: %2 (%3)")
        .arg(QString::number(Indice.row()), Indice.data().toString(), TipoDoSimbolo(Simbolo));
}

QString TPaginaDeSimbolos::Contagem() const
{
    const int Quantos = FModelo.rowCount();
    QString Texto = Quantos == 1 ? tr("1 símbolo") : tr("%1 símbolos").arg(Quantos);
    if (const auto Avisos = FBiblioteca != nullptr ? FBiblioteca->Avisos().size() : 0; Avisos > 0)
        Texto += Avisos == 1 ? tr(", 1 aviso") : tr(", %1 avisos").arg(Avisos);
    return Texto;
}

void TPaginaDeSimbolos::MontarMenus(QMenuBar &Barra)
{
    FMenu = Barra.addMenu(tr("E&xibir"));
    QAction *Maiores = FMenu->addAction(tr("Símbolos &maiores"), this, [this] { Crescer(1); });
    Maiores->setShortcut(QKeySequence::ZoomIn);
    QAction *Menores = FMenu->addAction(tr("Símbolos m&enores"), this, [this] { Crescer(-1); });
    Menores->setShortcut(QKeySequence::ZoomOut);
    FMenu->addSeparator();
}

void TPaginaDeSimbolos::Localizar()
{
    FBusca->setFocus(Qt::ShortcutFocusReason);
    FBusca->selectAll();
}

void TPaginaDeSimbolos::LocalizarOutro(bool ParaTras)
{
    Procurar(FFolha->currentIndex().row(), ParaTras);
}

void TPaginaDeSimbolos::MontarTamanho(QToolBar &Barra)
{
    FTamanho = new QSlider(Qt::Horizontal, &Barra);
    FTamanho->setRange(MenorTamanho, MaiorTamanho);
    FTamanho->setPageStep(PassoDoTamanho);
    FTamanho->setMaximumWidth(LarguraDoControle);
    FTamanho->setToolTip(tr("Lado dos símbolos, em pixels"));
    auto *Nome = new QLabel(tr("&Tamanho: "), &Barra);
    Nome->setBuddy(FTamanho);
    auto *Valor = new QLabel(&Barra);
    // Wide enough for every size, so that the tools beside it stand still.
    Valor->setMinimumWidth(Valor->fontMetrics().horizontalAdvance(tr(" %1 px ").arg(MaiorTamanho)));
    connect(FTamanho, &QSlider::valueChanged, this, [this, Valor](int Pixels) {
        Valor->setText(tr(" %1 px ").arg(Pixels));
        FFolha->AtribuirTamanho(Pixels);
    });
    FTamanho->setValue(TamanhoInicial);
    Barra.addWidget(Nome);
    Barra.addWidget(FTamanho);
    Barra.addWidget(Valor);
}

void TPaginaDeSimbolos::MontarBusca(QToolBar &Barra)
{
    FBusca = new QLineEdit(&Barra);
    FBusca->setPlaceholderText(tr("Localizar rótulo"));
    FBusca->setToolTip(tr("Parte de um rótulo; maiúsculas e acentos não contam. Enter ou F3: o próximo"));
    FBusca->setAccessibleName(tr("Localizar rótulo"));
    FBusca->setClearButtonEnabled(true);
    // While the text grows the symbol that was found stays, as long as it still fits.
    connect(FBusca, &QLineEdit::textEdited, this,
            [this] { Procurar(FFolha->currentIndex().row() - 1, false); });
    connect(FBusca, &QLineEdit::returnPressed, this, [this] { LocalizarOutro(false); });
    Barra.addWidget(FBusca);
    QAction *Proximo = Barra.addAction(tr("Próximo"), this, [this] { LocalizarOutro(false); });
    Proximo->setToolTip(tr("Próximo rótulo com o texto (F3)"));
}

void TPaginaDeSimbolos::Crescer(int Sentido)
{
    AtribuirTamanho(FTamanho->value() + Sentido * PassoDoTamanho);
}

void TPaginaDeSimbolos::Procurar(int APartirDe, bool ParaTras)
{
    const int Achada = FModelo.Procurar(FBusca->text(), APartirDe, ParaTras);
    if (Achada >= 0)
        FFolha->IrPara(Achada);
    else if (!FBusca->text().isEmpty())
        Q_EMIT Recado(tr("Nenhum rótulo contém \"%1\"").arg(FBusca->text()));
}

} // namespace Hospedeiro
