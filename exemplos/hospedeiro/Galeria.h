// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "hospedeiro/FundoPadronado.h"
#include "hospedeiro/Pagina.h"

#include <QColor>

#include <array>
#include <memory>
#include <vector>

class QComboBox;
class QHBoxLayout;

namespace Sibrel
{
class TGraphic;
class TSimboloImagem;
} // namespace Sibrel

namespace Hospedeiro
{

class TBotaoDeCor;

/// The page of the silhouettes: one mask in the three placements over a pattern, in any colour, and below it
/// every transfer that brings it there.
class TGaleria : public TPagina
{
    Q_OBJECT

public:
    explicit TGaleria(QWidget *Dono = nullptr);
    ~TGaleria() override;

    /// Offers the pictures of the folder "imagens" beside a library in place of those of the last one; what
    /// was opened by hand stays. Files that cannot be read are left out.
    void AtribuirBiblioteca(const QString &Arquivo);
    /// Offers a picture file as a mask and shows it. False and Erro when it cannot be read.
    bool Abrir(const QString &Arquivo);

    /// Names of the masks on offer, in order; the present one, -1 for none.
    QStringList Mascaras() const;
    int Escolhida() const;
    void Mostrar(int Indice);

    const QColor &Cor() const;
    void AtribuirCor(const QColor &Cor);
    TPadrao Padrao() const;
    void AtribuirPadrao(TPadrao Padrao);

    /// The controls: at the corner, centred, stretched.
    const std::array<Sibrel::TSimboloImagem *, 3> &Silhuetas() const noexcept { return FSilhuetas; }

    QString Titulo() const override;
    QString Atual() const override;
    QString Contagem() const override;

private:
    struct TMascara {
        std::unique_ptr<Sibrel::TGraphic> Figura;
        bool DaBiblioteca;
    };

    QWidget *MontarEscolhas();
    QWidget *MontarSilhuetas();
    QWidget *MontarSilhueta(std::size_t Qual, const QString &Nome);
    QWidget *MontarPassos();
    void PerguntarEAbrir();
    void Oferecer(const QString &Arquivo, bool DaBiblioteca);
    void RetirarAsDaBiblioteca();
    void MostrarMascara();
    void MostrarFundo();
    void MostrarCor();
    void MostrarPassos();

    std::vector<TMascara> FMascaras; // as in the box of choices
    std::array<Sibrel::TSimboloImagem *, 3> FSilhuetas{};
    std::array<TFundoPadronado *, 3> FFundos{};
    QHBoxLayout *FPassos = nullptr;
    QComboBox *FMascara = nullptr;
    QComboBox *FPadrao = nullptr;
    TBotaoDeCor *FCor = nullptr;
};

} // namespace Hospedeiro
